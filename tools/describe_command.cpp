// Prints effects, parameters and presets.
#include "describe_command.h"

#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>

#include "host/names.h"
#include "host/value_text.h"

namespace brushworks::tools {
namespace {

using Json = nlohmann::ordered_json;

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

std::size_t longest(const std::vector<std::string>& texts) {
    std::size_t length = 0;
    for (const std::string& text : texts) length = std::max(length, text.size());
    return length;
}

Json numberAsJson(const std::string& text) {
    return Json::parse(text);
}

Json valueAsJson(const host::ParameterInfo& parameter, EffectParam value) {
    const std::string text = host::printValue(parameter, value);
    if (parameter.type == kParamFloat) return numberAsJson(text);
    if (parameter.type == kParamCheckBox) return value.on != 0;
    return text;
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
    std::vector<std::string> ids;
    for (const host::EffectEntry& effect : library.effects()) ids.push_back(effect.id);
    const int width = static_cast<int>(longest(ids));
    for (const host::EffectEntry& effect : library.effects()) {
        out << std::setw(2) << std::right << effect.index << "  " << std::setw(width) << std::left
            << effect.id << "  " << effect.name << '\n';
    }
}

void describeEffect(const host::EffectInfo& effect, std::ostream& out) {
    std::vector<std::string> names;
    std::vector<std::string> ranges;
    std::vector<std::string> defaults;
    for (const host::ParameterInfo& parameter : effect.parameters) {
        if (!parameter.hasValue()) continue;
        names.push_back(parameter.address);
        ranges.push_back(rangeText(parameter));
        defaults.push_back(host::printValue(parameter, parameter.defaultValue));
    }
    const auto column = [&](const std::string& text, std::size_t width) {
        out << std::setw(static_cast<int>(width)) << std::left << text << "  ";
    };

    out << effect.name << " (" << effect.id << ")\n\nParameters: name, type, values, default\n";
    std::string group;
    std::size_t row = 0;
    for (const host::ParameterInfo& parameter : effect.parameters) {
        if (!parameter.hasValue()) continue;
        if (parameter.group != group) {
            group = parameter.group;
            out << (group.empty() ? "Further" : group) << ":\n";
        }
        out << "  ";
        column(names[row], longest(names));
        column(std::string(host::typeName(parameter.type)), std::string_view("check box").size());
        column(ranges[row], longest(ranges));
        column(defaults[row], longest(defaults));
        out << parameter.toolTip << '\n';
        ++row;
    }
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
        Json values = Json::object();
        for (const host::ParameterInfo& parameter : effect.parameters) {
            if (!parameter.hasValue()) continue;
            values[parameter.address] = valueAsJson(parameter, preset.values.at(parameter.index));
        }
        json["presets"].push_back({{"name", preset.name}, {"values", std::move(values)}});
    }
    out << json.dump(2) << '\n';
}

}  // namespace brushworks::tools
