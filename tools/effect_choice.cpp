// A preset first, then single values over it.
#include "effect_choice.h"

#include "host/error.h"
#include "host/preset_file.h"

namespace brushworks::tools {

host::Effect openEffect(const host::Library& library, const EffectChoice& choice) {
    host::Effect effect = library.open(choice.effect);
    if (!choice.preset.empty()) effect.applyPreset(choice.preset);
    if (!choice.presetFile.empty()) {
        effect.apply(host::PresetFile::load(choice.presetFile).presetFor(effect));
    }
    for (const std::string& setting : choice.values) {
        const std::size_t sign = setting.find('=');
        if (sign == std::string::npos) {
            throw host::UsageError("\"" + setting + "\" is not of the form NAME=VALUE");
        }
        effect.set(setting.substr(0, sign), setting.substr(sign + 1));
    }
    return effect;
}

}  // namespace brushworks::tools
