#include "presets/preset_extension.h"

#include <cstring>
#include <string>

namespace brushworks {

void GetEffectExtension(const char* libraryName, unsigned int effect, char* extension) {
    if (!extension) return;
    std::string text = "prs";
    if (libraryName) {
        text = std::strcmp(libraryName, "Lumenfold Brushworks") == 0 ? "fxpbwk" : "fxpunk";
        if (effect <= 'z' - 'a') text += static_cast<char>('a' + effect);
    }
    std::memcpy(extension, text.c_str(), text.size() + 1);
}

}  // namespace brushworks
