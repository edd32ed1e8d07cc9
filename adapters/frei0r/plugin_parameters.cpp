// Turns an effect's parameters into a plug-in's.
#include "frei0r/plugin_parameters.h"

#include <frei0r.h>

#include <algorithm>

#include "host/names.h"
#include "host/value_text.h"

namespace brushworks::frei0r {
namespace {

constexpr char kPresetName[] = "Preset";

int frei0rType(ParamType type) {
    switch (type) {
        case kParamPoint:
            return F0R_PARAM_POSITION;
        case kParamColor:
            return F0R_PARAM_COLOR;
        case kParamCheckBox:
            return F0R_PARAM_BOOL;
        case kParamFloat:
            return F0R_PARAM_DOUBLE;
        default:
            return F0R_PARAM_STRING;
    }
}

/// What tells a parameter from another of the same name.
std::string_view typeWord(ParamType type) {
    switch (type) {
        case kParamPoint:
            return "Position";
        case kParamList:
            return "Choice";
        case kParamColor:
            return "Color";
        case kParamCheckBox:
            return "Switch";
        default:
            return "Amount";
    }
}

bool isTaken(const std::string& name, const std::vector<PluginParameter>& earlier) {
    return host::sameName(name, kPresetName) ||
           std::any_of(earlier.begin(), earlier.end(), [&](const PluginParameter& parameter) {
               return host::sameName(name, parameter.name);
           });
}

/// The effect's name for the parameter where it is free; else with its panel or its kind, at the
/// worst with a number.
std::string uniqueName(const host::ParameterInfo& info,
                       const std::vector<PluginParameter>& earlier) {
    if (!isTaken(info.name, earlier)) return info.name;
    std::string name = info.group + " " + info.name;
    if (info.group.empty() || isTaken(name, earlier)) {
        name = info.name + " " + std::string(typeWord(info.type));
    }
    const std::string telling = name;
    for (int number = 2; isTaken(name, earlier); ++number) {
        name = telling + " " + std::to_string(number);
    }
    return name;
}

/// What a value means where the host shows only frei0r's own range or a bare text field.
std::string valueText(const host::ParameterInfo& info) {
    if (info.type == kParamList) return "one of " + host::joinNames(info.options);
    if (info.type != kParamFloat) return "";
    return "0 to 1 stands for " + host::printNumber(info.displayMin) + " to " +
           host::printNumber(info.displayMax);
}

std::string explanation(const host::ParameterInfo& info) {
    const std::string values = valueText(info);
    if (values.empty()) return info.toolTip;
    return info.toolTip.empty() ? values : info.toolTip + " (" + values + ")";
}

PluginParameter presetParameter(const host::EffectInfo& effect) {
    std::vector<std::string> names;
    for (const host::Preset& preset : effect.presets) names.push_back(preset.name);
    return {kPresetName, F0R_PARAM_STRING,
            "Sets all other parameters, unless it is empty (one of " + host::joinNames(names) + ")",
            nullptr};
}

}  // namespace

std::vector<PluginParameter> pluginParameters(const host::EffectInfo& effect) {
    std::vector<PluginParameter> parameters;
    for (const host::ParameterInfo& info : effect.parameters) {
        if (!info.hasValue()) continue;
        parameters.push_back(
            {uniqueName(info, parameters), frei0rType(info.type), explanation(info), &info});
    }
    parameters.push_back(presetParameter(effect));
    return parameters;
}

std::string pluginFileName(std::string_view effectId) {
    std::string name = "brushworks_" + std::string(effectId);
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

std::string pluginName(std::string_view effectId) {
    std::string name = pluginFileName(effectId);
    bool first = true;
    for (char& letter : name) {
        if (first && letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
        first = letter == '_';
        if (first) letter = ' ';
    }
    return name;
}

}  // namespace brushworks::frei0r
