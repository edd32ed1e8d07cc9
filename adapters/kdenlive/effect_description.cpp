// Writes a plug-in's parameters in the words of Kdenlive's effect files.
//
// Kdenlive hands values to MLT under the plug-in's own parameter names. MLT reads numbers for
// sliders and check boxes, takes texts as they are, and never sets a position.
#include "kdenlive/effect_description.h"

#include <frei0r.h>
#include <tinyxml.h>

#include <cstdio>
#include <vector>

#include "frei0r/plugin_parameters.h"
#include "host/error.h"
#include "host/value_text.h"

namespace brushworks::kdenlive {
namespace {

constexpr char kAuthor[] = "Brushworks";
constexpr float kFullCircle = 360;
/// Defaults and presets lie on half steps, and angles on tenths of a degree.
constexpr int kDecimals = 1;

/// What a slider shows: its position between 0 and 1, times the factor.
struct Scale {
    float factor;
    const char* unit;
    bool isPercent;  ///< of the slider's way, instead of what other hosts show
};

/// Kdenlive has a factor and nothing to add to it: what starts elsewhere than at 0 is in percent.
Scale scaleOf(const host::ParameterInfo& slider) {
    if (slider.displayMin != 0 || slider.displayMax <= 0) return {100, "%", true};
    return {slider.displayMax, slider.displayMax == kFullCircle ? "°" : "", false};
}

/// The names as Kdenlive and MLT take them apart again.
std::string list(const std::vector<std::string>& names, char separator) {
    std::string joined;
    for (const std::string& name : names) {
        if (name.find_first_of(";,=") != std::string::npos) {
            throw host::Error("\"" + name + "\" cannot stand in a list of Kdenlive");
        }
        if (&name != &names.front()) joined += separator;
        joined += name;
    }
    return joined;
}

void addText(TiXmlElement& parent, const char* tag, const std::string& text) {
    TiXmlElement element(tag);
    element.InsertEndChild(TiXmlText(text));
    parent.InsertEndChild(element);
}

/// A parameter with what all types have; `toolTip` may be empty.
TiXmlElement parameterElement(const std::string& name, const char* type,
                              const std::string& defaultValue, const std::string& toolTip) {
    TiXmlElement element("parameter");
    element.SetAttribute("type", type);
    element.SetAttribute("name", name);
    element.SetAttribute("default", defaultValue);
    addText(element, "name", name);
    if (!toolTip.empty()) addText(element, "comment", toolTip);
    return element;
}

TiXmlElement slider(const std::string& name, const host::ParameterInfo& info) {
    const Scale scale = scaleOf(info);
    std::string toolTip = info.toolTip;
    if (scale.isPercent) {
        toolTip += " (0% to 100% stands for " + host::printNumber(info.displayMin) + " to " +
                   host::printNumber(info.displayMax) + ")";
    }
    TiXmlElement element =
        parameterElement(name, "animated", host::printNumber(info.defaultValue.value), toolTip);
    element.SetAttribute("min", "0");
    element.SetAttribute("max", host::printNumber(scale.factor));
    element.SetAttribute("factor", host::printNumber(scale.factor));
    element.SetAttribute("decimals", kDecimals);
    if (*scale.unit != '\0') element.SetAttribute("suffix", scale.unit);
    return element;
}

TiXmlElement checkBox(const std::string& name, const host::ParameterInfo& info) {
    return parameterElement(name, "bool", info.defaultValue.on != 0 ? "1" : "0", info.toolTip);
}

TiXmlElement color(const std::string& name, const host::ParameterInfo& info) {
    const std::string rrggbb = host::printValue(info, info.defaultValue).substr(1);
    return parameterElement(name, "color", "0x" + rrggbb + "ff", info.toolTip);
}

/// Kdenlive shows `labels` and hands the value of the same place to MLT.
TiXmlElement choice(const std::string& name, const std::vector<std::string>& values,
                    const std::vector<std::string>& labels, const std::string& defaultValue,
                    const std::string& toolTip) {
    TiXmlElement element = parameterElement(name, "list", defaultValue, toolTip);
    element.SetAttribute("paramlist", list(values, ';'));
    addText(element, "paramlistdisplay", list(labels, ','));
    return element;
}

/// The plug-in's preset: no text for none, which must be at hand to get back to the controls. Its
/// label is not "None", since many effects have a preset "Reset to None".
TiXmlElement presetChoice(const std::string& name, const host::EffectInfo& effect) {
    std::vector<std::string> values = {""};
    std::vector<std::string> labels = {"No preset"};
    for (const host::Preset& preset : effect.presets) {
        values.push_back(preset.name);
        labels.push_back(preset.name);
    }
    return choice(name, values, labels, "",
                  "A preset sets all other parameters, until there is no preset");
}

void addParameter(TiXmlElement& root, const frei0r::PluginParameter& parameter,
                  const host::EffectInfo& effect) {
    const host::ParameterInfo* info = parameter.source;
    if (info == nullptr) {
        root.InsertEndChild(presetChoice(parameter.name, effect));
    } else if (parameter.type == F0R_PARAM_DOUBLE) {
        root.InsertEndChild(slider(parameter.name, *info));
    } else if (parameter.type == F0R_PARAM_BOOL) {
        root.InsertEndChild(checkBox(parameter.name, *info));
    } else if (parameter.type == F0R_PARAM_COLOR) {
        root.InsertEndChild(color(parameter.name, *info));
    } else if (parameter.type == F0R_PARAM_STRING) {
        const std::string chosen = host::printValue(*info, info->defaultValue);
        root.InsertEndChild(
            choice(parameter.name, info->options, info->options, chosen, info->toolTip));
    }
}

TiXmlElement effectElement(const host::EffectInfo& effect) {
    TiXmlElement root("effect");
    const std::string service = "frei0r." + frei0r::pluginFileName(effect.id);
    root.SetAttribute("tag", service);
    root.SetAttribute("id", service);
    addText(root, "name", frei0r::pluginName(effect.id));
    addText(root, "description", effect.name + ", a painterly effect of Brushworks");
    addText(root, "author", kAuthor);
    const std::vector<frei0r::PluginParameter> parameters = frei0r::pluginParameters(effect);
    // What overrules all others is seen above them.
    addParameter(root, parameters.back(), effect);
    for (std::size_t i = 0; i + 1 < parameters.size(); ++i) {
        addParameter(root, parameters[i], effect);
    }
    return root;
}

}  // namespace

std::string descriptionFileName(std::string_view effectId) {
    return "frei0r_" + frei0r::pluginFileName(effectId) + ".xml";
}

std::string effectDescription(const host::EffectInfo& effect) {
    TiXmlDocument document;
    document.InsertEndChild(TiXmlDeclaration("1.0", "UTF-8", ""));
    TiXmlUnknown type;
    type.SetValue("!DOCTYPE kpartgui");
    document.InsertEndChild(type);
    document.InsertEndChild(effectElement(effect));
    TiXmlPrinter printer;
    document.Accept(&printer);
    return printer.Str();
}

}  // namespace brushworks::kdenlive
