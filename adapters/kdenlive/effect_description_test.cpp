// The files that the build wrote, read as Kdenlive and MLT read them: every control of every effect
// is there, and what its panel shows arrives as the effect's value.
#include "kdenlive/effect_description.h"

#include <gmock/gmock.h>
#include <tinyxml.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "frei0r/parameter_value.h"
#include "frei0r/plugin_parameters.h"
#include "host/library.h"
#include "host/testing_message.h"
#include "host/value_text.h"

namespace brushworks::kdenlive {
namespace {

std::string text(const TiXmlElement& control, const char* attribute) {
    return control.Attribute(attribute) == nullptr ? "(none)" : control.Attribute(attribute);
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

/// What the effect gets when MLT hands the number to the plug-in.
EffectParam handed(const host::ParameterInfo& info, double number) {
    return frei0r::fromHost(info, &number);
}

void expectSlider(const TiXmlElement& control, const host::ParameterInfo& info) {
    const double factor = number(control, "factor");
    EXPECT_EQ(handed(info, number(control, "min") / factor).value, 0);
    EXPECT_EQ(handed(info, number(control, "max") / factor).value, 1);
    const double position = number(control, "default");
    EXPECT_EQ(handed(info, position).value, info.defaultValue.value);
    const double inLastDecimal = position * factor * std::pow(10, number(control, "decimals"));
    EXPECT_NEAR(inLastDecimal, std::round(inLastDecimal), 1e-6) << "the panel rounds the default";
    if (text(control, "suffix") == "%") return;
    EXPECT_NEAR(position * factor, host::displayValue(info, info.defaultValue.value), 1e-4);
}

void expectList(const TiXmlElement& control, const std::vector<std::string>& names) {
    EXPECT_EQ(split(text(control, "paramlist"), ';'), names);
    const char* labels = control.FirstChildElement("paramlistdisplay")->GetText();
    EXPECT_EQ(split(labels, ',').size(), names.size()) << labels;
    EXPECT_THAT(names, testing::Contains(text(control, "default")));
}

void expectControl(const TiXmlElement& control, const host::ParameterInfo& info) {
    constexpr const char* kTypes[] = {"", "list", "animated", "color", "bool"};  // by ParamType
    EXPECT_EQ(text(control, "type"), kTypes[info.type]);
    const std::string value = text(control, "default");
    if (info.type == kParamFloat) {
        expectSlider(control, info);
    } else if (info.type == kParamList) {
        expectList(control, info.options);
        EXPECT_EQ(frei0r::optionFromText(info, value).index, info.defaultValue.index);
    } else if (info.type == kParamColor) {
        EXPECT_EQ(host::parseValue(info, "#" + value.substr(2, 6)).color, info.defaultValue.color);
        EXPECT_EQ(value.substr(8), "ff");
    } else {
        EXPECT_EQ(handed(info, std::stod(value)).on, info.defaultValue.on);
    }
}

void expectPresets(const TiXmlElement& control, const std::vector<host::Preset>& presets) {
    std::vector<std::string> names = {""};
    for (const host::Preset& preset : presets) names.push_back(preset.name);
    expectList(control, names);
    EXPECT_EQ(text(control, "default"), "");
}

TEST(KdenliveDescription, HasEveryControlOfEveryPlugIn) {
    const host::Library library = host::Library::load();
    for (const host::EffectEntry& entry : library.effects()) {
        SCOPED_TRACE(entry.id);
        TiXmlDocument file(BRUSHWORKS_DESCRIPTIONS "/" + descriptionFileName(entry.id));
        ASSERT_TRUE(file.LoadFile()) << file.ErrorDesc();
        const TiXmlElement* root = file.RootElement();
        EXPECT_EQ(text(*root, "tag"), "frei0r." + frei0r::pluginFileName(entry.id));
        const host::Effect effect = library.open(entry.index);
        auto parameters = frei0r::pluginParameters(effect.info());
        std::rotate(parameters.begin(), parameters.end() - 1, parameters.end());
        const TiXmlElement* control = root->FirstChildElement("parameter");
        for (const frei0r::PluginParameter& parameter : parameters) {
            SCOPED_TRACE(parameter.name);
            ASSERT_NE(control, nullptr);
            EXPECT_EQ(text(*control, "name"), parameter.name);
            if (parameter.source != nullptr) {
                expectControl(*control, *parameter.source);
            } else {
                expectPresets(*control, effect.info().presets);
            }
            control = control->NextSiblingElement("parameter");
        }
        EXPECT_EQ(control, nullptr);
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
