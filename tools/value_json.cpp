// Texts and numbers come from the same printer as for people, so that both read the same.
#include "value_json.h"

#include "host/value_text.h"

namespace brushworks::tools {

Json numberAsJson(const std::string& text) {
    return Json::parse(text);
}

Json valueAsJson(const host::ParameterInfo& parameter, EffectParam value) {
    const std::string text = host::printValue(parameter, value);
    if (parameter.type == kParamFloat) return numberAsJson(text);
    if (parameter.type == kParamCheckBox) return value.on != 0;
    return text;
}

Json valuesAsJson(const host::EffectInfo& effect, const host::Preset& preset) {
    Json values = Json::object();
    for (const host::ParameterInfo& parameter : effect.parameters) {
        if (!parameter.hasValue()) continue;
        values[parameter.address] = valueAsJson(parameter, preset.values.at(parameter.index));
    }
    return values;
}

}  // namespace brushworks::tools
