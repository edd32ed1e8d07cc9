// Names and values as people type them.
#include "host/names.h"

#include <gmock/gmock.h>

#include "host/error.h"
#include "host/value_text.h"

namespace brushworks::host {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

TEST(Names, TheNearestIsOneThatAPersonCouldHaveMeant) {
    const std::vector<std::string> right = {"cartoon", "charcoal", "oil", "water-color"};
    EXPECT_EQ(nearestName("Cartoom", right), "cartoon");
    EXPECT_EQ(nearestName("CHAR", right), "charcoal");
    EXPECT_EQ(nearestName("watercolour", right), "water-color");
    EXPECT_EQ(nearestName("iol", right), "oil");
    EXPECT_EQ(nearestName("old", right), "");
    EXPECT_EQ(nearestName("sculpture", right), "");
    EXPECT_EQ(nearestName("xyz", right), "");
    EXPECT_EQ(nearestName("", right), "");
    EXPECT_THAT(unknownName("effect", "ojl", right),
                AllOf(HasSubstr("no effect \"ojl\""), HasSubstr("did you mean \"oil\""),
                      HasSubstr("cartoon, charcoal, oil, water-color")));
    EXPECT_THAT(unknownName("effect", "sculpture", right), Not(HasSubstr("did you mean")));
}

ParameterInfo parameter(ParamType type) {
    ParameterInfo info;
    info.name = info.address = "Thing";
    info.type = type;
    info.displayMin = -100;
    info.displayMax = 100;
    info.options = {"None", "Option A"};
    return info;
}

TEST(ValueText, ReadsWhatPeopleType) {
    const ParameterInfo slider = parameter(kParamFloat);
    EXPECT_EQ(parseValue(slider, "-100").value, 0.0F);
    EXPECT_EQ(parseValue(slider, "+100").value, 1.0F);
    EXPECT_EQ(parseValue(slider, "-14").value, 0.43F);
    EXPECT_EQ(parseValue(slider, "2.5e1").value, 0.625F);
    EXPECT_EQ(parseValue(parameter(kParamList), "option a").index, 1);
    EXPECT_EQ(parseValue(parameter(kParamColor), "#Ff8001").color, 0x0180FFU);
    for (const char* on : {"on", "TRUE", "yes", "1"}) {
        EXPECT_EQ(parseValue(parameter(kParamCheckBox), on).on, 1) << on;
    }
    for (const char* off : {"Off", "false", "no", "0"}) {
        EXPECT_EQ(parseValue(parameter(kParamCheckBox), off).on, 0) << off;
    }
    const EffectParam point = parseValue(parameter(kParamPoint), "0.25,-1");
    EXPECT_EQ(point.point.x, 0.25F);
    EXPECT_EQ(point.point.y, -1.0F);
}

TEST(ValueText, RefusesTheRestAndSaysWhatIsRight) {
    const std::vector<std::pair<ParamType, std::vector<const char*>>> wrong = {
        {kParamFloat, {"", "abc", "1x", " 1", "100.01", "-101", "nan", "inf", "1e999", "0x10"}},
        {kParamList, {"", "2", "Option"}},
        {kParamColor, {"ff8000", "#ff800", "#ff80000", "#gg0000", "#-10000", "red"}},
        {kParamCheckBox, {"", "2", "onn"}},
        {kParamPoint, {"1", "1,", ",1", "1,2,3", "1e99,0", "nan,0"}},
    };
    for (const auto& [type, texts] : wrong) {
        for (const char* text : texts) {
            EXPECT_THROW(parseValue(parameter(type), text), UsageError)
                << typeName(type) << " \"" << text << '"';
        }
    }
    const auto messageOf = [](ParamType type, const char* text) -> std::string {
        try {
            parseValue(parameter(type), text);
        } catch (const UsageError& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(messageOf(kParamFloat, "300"), "Thing takes a number from -100 to 100, not \"300\"");
    EXPECT_THAT(messageOf(kParamList, "Optoin A"),
                AllOf(HasSubstr("None, Option A"), HasSubstr("did you mean \"Option A\"")));
}

TEST(ValueText, PrintsTheFewestDigitsThatComeBackAsTheSameValue) {
    ParameterInfo slider = parameter(kParamFloat);
    EXPECT_EQ(printValue(slider, {.value = 0.43F}), "-14");
    EXPECT_EQ(printValue(slider, {.value = 0.5F}), "0");
    EXPECT_EQ(printValue(slider, {.value = 0.5001F}), "0.02");
    for (const auto& [low, high] : {std::pair{-100.0F, 100.0F}, {0.0F, 360.0F}, {1.0F, 10.0F}}) {
        slider.displayMin = low;
        slider.displayMax = high;
        for (int step = 0; step <= 4099; ++step) {
            const float value = static_cast<float>(step) / 4099.0F;
            const std::string text = printValue(slider, {.value = value});
            ASSERT_EQ(parseValue(slider, text).value, value) << text;
        }
    }
    const ParameterInfo color = parameter(kParamColor);
    EXPECT_EQ(printValue(color, parseValue(color, "#fe8001")), "#fe8001");
    EXPECT_EQ(printValue(parameter(kParamPoint), {.point = {0.1F, -2}}), "0.1,-2");
}

}  // namespace
}  // namespace brushworks::host
