// A preset first, then single values over it.
#include "effect_choice.h"

#include "host/error.h"
#include "host/preset_file.h"

namespace brushworks::tools {

namespace {

struct Setting {
    std::string name;
    std::string value;
};

Setting settingOf(const std::string& text) {
    const std::size_t sign = text.find('=');
    if (sign == std::string::npos) {
        throw host::UsageError("\"" + text + "\" is not of the form NAME=VALUE");
    }
    return {text.substr(0, sign), text.substr(sign + 1)};
}

}  // namespace

ChosenEffect chooseEffect(const host::Library& library, const EffectChoice& choice,
                          double frameRate) {
    ChosenEffect chosen = {library.open(choice.effect), {}};
    auto& [effect, animations] = chosen;
    if (!choice.preset.empty()) effect.applyPreset(choice.preset);
    if (!choice.presetFile.empty()) {
        effect.apply(host::PresetFile::load(choice.presetFile).presetFor(effect));
    }
    for (const std::string& text : choice.values) {
        const auto [name, value] = settingOf(text);
        const host::ParameterInfo& parameter = effect.info().parameter(name);
        std::erase_if(animations, [&](const host::Animation& earlier) {
            return earlier.parameter().index == parameter.index;
        });
        if (host::Animation::hasMarks(value)) {
            animations.push_back(
                host::Animation::parse(parameter, value, effect.value(parameter), frameRate));
        } else {
            effect.set(name, value);
        }
    }
    return chosen;
}

host::Effect openEffect(const host::Library& library, const EffectChoice& choice) {
    for (const std::string& text : choice.values) {
        if (!host::Animation::hasMarks(settingOf(text).value)) continue;
        throw host::UsageError("\"" + text +
                               "\" moves over time, and a preset holds one value for each "
                               "parameter; set a value without @TIME");
    }
    return chooseEffect(library, choice, 0).effect;
}

}  // namespace brushworks::tools
