// Prints effects, parameters and presets.
#include "describe_command.h"

#include <algorithm>
#include <iomanip>

#include "host/names.h"
#include "host/value_text.h"
#include "parameter_table.h"
#include "value_json.h"

namespace brushworks::tools {
namespace {

/// What a value may be, in a word or two.
std::string rangeText(const host::ParameterInfo& parameter) {
    if (parameter.type == kParamFloat) {
        return host::printNumber(parameter.displayMin) + " to " +
               host::printNumber(parameter.displayMax);
    }
    if (parameter.type == kParamList) return host::joinNames(parameter.options);
    if (parameter.type == kParamCheckBox) return "on, off";
    if (parameter.type == kParamColor) return "#rrggbb";
    return "x,y";
}

Json parameterAsJson(const host::ParameterInfo& parameter) {
    Json json = {{"name", parameter.address}, {"type", host::typeName(parameter.type)}};
    if (!parameter.group.empty()) json["group"] = parameter.group;
    if (parameter.type == kParamFloat) {
        json["minimum"] = numberAsJson(host::printNumber(parameter.displayMin));
        json["maximum"] = numberAsJson(host::printNumber(parameter.displayMax));
        json["step"] = parameter.displayStep;
    }
    if (parameter.type == kParamList) json["options"] = parameter.options;
    json["default"] = valueAsJson(parameter, parameter.defaultValue);
    json["tooltip"] = parameter.toolTip;
    return json;
}

}  // namespace

void listEffects(const host::Library& library, std::ostream& out) {
    std::size_t longest = 0;
    for (const host::EffectEntry& effect : library.effects()) {
        longest = std::max(longest, effect.id.size());
    }
    const int width = static_cast<int>(longest);
    for (const host::EffectEntry& effect : library.effects()) {
        out << std::setw(2) << std::right << effect.index << "  " << std::setw(width) << std::left
            << effect.id << "  " << effect.name << '\n';
    }
}

void describeEffect(const host::EffectInfo& effect, std::ostream& out) {
    out << effect.name << " (" << effect.id << ")\n\nParameters: name, type, values, default\n";
    writeParameterTable(effect.parameters, out, [](const host::ParameterInfo& parameter) {
        return std::vector<std::string>{
            parameter.address, std::string(host::typeName(parameter.type)), rangeText(parameter),
            host::printValue(parameter, parameter.defaultValue), parameter.toolTip};
    });
    out << "\nPresets\n";
    for (const host::Preset& preset : effect.presets) out << "  " << preset.name << '\n';
}

void describeEffectAsJson(const host::EffectInfo& effect, std::ostream& out) {
    Json json = {{"index", effect.index}, {"id", effect.id}, {"name", effect.name}};
    json["parameters"] = Json::array();
    json["presets"] = Json::array();
    for (const host::ParameterInfo& parameter : effect.parameters) {
        if (parameter.hasValue()) json["parameters"].push_back(parameterAsJson(parameter));
    }
    for (const host::Preset& preset : effect.presets) {
        json["presets"].push_back(
            {{"name", preset.name}, {"values", valuesAsJson(effect, preset)}});
    }
    out << json.dump(2) << '\n';
}

}  // namespace brushworks::tools
