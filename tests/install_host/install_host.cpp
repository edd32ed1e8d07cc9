// Prints the names of the effects.
#include <brushworks/brushworks.h>
#include <cstdio>

int main() {
    brushworks::IEffectLibrary* library = brushworks::GetEffectsLibrary();
    for (unsigned i = 0; brushworks::IVideoEffect* effect = library->CreateEffect(i); ++i) {
        std::puts(effect->GetName());
        effect->Release();
    }
    library->Release();
    return brushworks::CanUnloadDLLNow() ? 0 : 1;
}
