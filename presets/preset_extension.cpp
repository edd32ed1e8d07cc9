#include "presets/preset_extension.h"

#include <cstring>

namespace brushworks {

void GetEffectExtension(const char* libraryName, unsigned int effect, char* extension) {
    if (!extension) return;
    if (!libraryName) {
        std::strcpy(extension, "prs");
        return;
    }
    const bool known = std::strcmp(libraryName, "Lumenfold Brushworks") == 0;
    std::strcpy(extension, known ? "fxpbwk" : "fxpunk");
    if (effect > 'z' - 'a') return;
    const char letter[] = {static_cast<char>('a' + effect), '\0'};
    std::strcat(extension, letter);
}

}  // namespace brushworks
