// The files that the build wrote, read as Kdenlive and MLT read them: every control of every effect
// is there, and what its panel shows arrives as the effect's value.
#include "kdenlive/effect_description.h"

#include <gmock/gmock.h>
#include <tinyxml.h>

#include <cmath>
#include <map>
#include <sstream>

#include "frei0r/plugin_parameters.h"
#include "host/library.h"
#include "host/testing_message.h"
#include "host/value_text.h"

namespace brushworks::kdenlive {
namespace {

std::string text(const TiXmlElement& control, const char* attribute) {
    const char* value = control.Attribute(attribute);
    return value == nullptr ? "(missing)" : value;
}

double number(const TiXmlElement& control, const char* attribute) {
    return std::stod(text(control, attribute));
}

std::vector<std::string> split(const std::string& list, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(list);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

void expectSlider(const TiXmlElement& control, const host::ParameterInfo& info) {
    const double factor = number(control, "factor");
    EXPECT_EQ(number(control, "min") / factor, 0);
    EXPECT_EQ(number(control, "max") / factor, 1);
    EXPECT_EQ(std::stof(text(control, "default")), info.defaultValue.value);
    const double shown = number(control, "default") * factor;
    const double inLastDecimal = shown * std::pow(10, number(control, "decimals"));
    EXPECT_NEAR(inLastDecimal, std::round(inLastDecimal), 1e-6) << "the panel rounds the default";
    if (text(control, "suffix") == "%") return;
    EXPECT_NEAR(shown, host::displayValue(info, info.defaultValue.value), 1e-4);
}

void expectList(const TiXmlElement& control, const std::vector<std::string>& names) {
    EXPECT_EQ(split(text(control, "paramlist"), ';'), names);
    const char* labels = control.FirstChildElement("paramlistdisplay")->GetText();
    EXPECT_EQ(split(labels, ',').size(), names.size()) << labels;
    EXPECT_THAT(names, testing::Contains(text(control, "default")));
}

void expectControl(const TiXmlElement& control, const host::ParameterInfo& info) {
    const std::map<ParamType, const char*> types = {{kParamFloat, "animated"},
                                                    {kParamList, "list"},
                                                    {kParamCheckBox, "bool"},
                                                    {kParamColor, "color"}};
    EXPECT_EQ(text(control, "type"), types.at(info.type));
    if (info.type == kParamFloat) return expectSlider(control, info);
    std::string value = text(control, "default");
    if (info.type == kParamList) expectList(control, info.options);
    if (info.type == kParamColor) value = "#" + value.substr(2, 6);
    EXPECT_EQ(host::parseValue(info, value).word, info.defaultValue.word);
}

TEST(KdenliveDescription, HasEveryControlOfEveryPlugIn) {
    const host::Library library = host::Library::load();
    for (const host::EffectEntry& entry : library.effects()) {
        SCOPED_TRACE(entry.id);
        TiXmlDocument file(BRUSHWORKS_DESCRIPTIONS "/" + descriptionFileName(entry.id));
        ASSERT_TRUE(file.LoadFile()) << file.ErrorDesc();
        const TiXmlElement& root = *file.RootElement();
        EXPECT_EQ(text(root, "tag"), "frei0r." + frei0r::pluginFileName(entry.id));
        std::multimap<std::string, const TiXmlElement*> controls;
        for (auto* control = root.FirstChildElement("parameter"); control != nullptr;
             control = control->NextSiblingElement("parameter")) {
            controls.emplace(text(*control, "name"), control);
        }
        const host::Effect effect = library.open(entry.index);
        const auto parameters = frei0r::pluginParameters(effect.info());
        EXPECT_EQ(controls.size(), parameters.size());
        for (const frei0r::PluginParameter& parameter : parameters) {
            SCOPED_TRACE(parameter.name);
            ASSERT_EQ(controls.count(parameter.name), 1U);
            const TiXmlElement& control = *controls.find(parameter.name)->second;
            if (parameter.source != nullptr) {
                expectControl(control, *parameter.source);
                continue;
            }
            std::vector<std::string> presets = {""};
            for (const host::Preset& preset : effect.info().presets) presets.push_back(preset.name);
            expectList(control, presets);
            EXPECT_EQ(text(control, "default"), "");
        }
    }
}

TEST(KdenliveDescription, RefusesNamesThatWouldFallApart) {
    host::EffectInfo effect;
    effect.presets.resize(1);
    for (const char* name : {"Soft;Hard", "Soft, and Hard", "Soft=Hard"}) {
        effect.presets[0].name = name;
        EXPECT_THAT(host::messageOf([&] { effectDescription(effect); }), testing::HasSubstr(name));
    }
}

}  // namespace
}  // namespace brushworks::kdenlive
