// Values that move over time, as people write them.
#include "host/animation.h"

#include <gmock/gmock.h>

#include "host/testing_message.h"
#include "host/value_text.h"

namespace brushworks::host {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

ParameterInfo parameter(ParamType type) {
    ParameterInfo info;
    info.address = "Thing";
    info.type = type;
    info.displayMin = -100;
    info.displayMax = 100;
    info.options = {"None", "Option A"};
    return info;
}

/// The value at a time, as text, at 25 frames a second from a start of 50.
std::string valueAt(ParamType type, const char* marks, double seconds) {
    const ParameterInfo info = parameter(type);
    const Animation animation =
        Animation::parse(info, marks, parseValue(parameter(kParamFloat), "50"), 25);
    return printValue(info, animation.valueAt(seconds));
}

TEST(Animation, HoldsItsEndsAndMovesBetweenMarks) {
    const char* straight = "10@1s,-60@3s";
    EXPECT_EQ(valueAt(kParamFloat, straight, -1), "10");
    EXPECT_EQ(valueAt(kParamFloat, straight, 0), "10");
    EXPECT_EQ(valueAt(kParamFloat, straight, 1), "10");
    EXPECT_EQ(valueAt(kParamFloat, straight, 1.5), "-7.5");
    EXPECT_EQ(valueAt(kParamFloat, straight, 3), "-60");
    EXPECT_EQ(valueAt(kParamFloat, straight, 1e9), "-60");
    const char* easedOnce = "0@0s ~ 100@4s, 0@8s";
    EXPECT_EQ(valueAt(kParamFloat, easedOnce, 1), "15.625");
    EXPECT_EQ(valueAt(kParamFloat, easedOnce, 2), "50");
    EXPECT_EQ(valueAt(kParamFloat, easedOnce, 5), "75");
    EXPECT_EQ(valueAt(kParamFloat, "@0s,100@1s", 0.5), "75");
    EXPECT_EQ(valueAt(kParamColor, "#ff0000@0s,#0102ff@1s", 0.5), "#800180");
    EXPECT_EQ(valueAt(kParamPoint, "0,1@0s,1,0.5@1s", 0.5), "0.5,0.75");
    // One that cannot lie between steps at the mark, and not a frame late where its time is
    // rounded.
    for (const char* marks : {"none@0s,option a@1s", "none@0s~option a@1s"}) {
        EXPECT_EQ(valueAt(kParamList, marks, 0.96), "None");
        EXPECT_EQ(valueAt(kParamList, marks, 0.9995), "Option A");
    }
    EXPECT_EQ(valueAt(kParamCheckBox, "on@0s,off@1s", 0.5), "on");
}

TEST(Animation, ReadsTimesInEveryUnit) {
    for (const auto& [time, seconds] : {std::pair{"3723.5s", 3723.5},
                                        {"250ms", 0.25},
                                        {"100f", 4.0},
                                        {"1:02:03.5", 3723.5},
                                        {"90:00", 5400.0}}) {
        const std::string marks = std::string("-100@0s,100@") + time + ",0@9:00:00";
        EXPECT_EQ(valueAt(kParamFloat, marks.c_str(), seconds), "100") << time;
        EXPECT_EQ(valueAt(kParamFloat, marks.c_str(), seconds / 2), "0") << time;
    }
}

TEST(Animation, RefusesTheRestAndSaysWhatIsRight) {
    const auto messageFor = [](const std::string& marks, double frameRate = 25) {
        return messageOf(
            [&] { Animation::parse(parameter(kParamFloat), marks, {.word = 0}, frameRate); });
    };
    for (const char* time : {"", "4", "4x", "-1s", "s", "1.5f", "1:60", "1:60:00", "0:0:0:1", ":1",
                             "1:", "infs", "1 s", "4m"}) {
        EXPECT_THAT(messageFor(std::string("1@") + time),
                    AllOf(StartsWith("usage: Thing: \"" + std::string(time) + "\" is no time"),
                          HasSubstr("seconds (4s)")));
    }
    EXPECT_THAT(messageFor("1@0s,60"), AllOf(HasSubstr("\"60\" in \"1@0s,60\" has no time")));
    EXPECT_THAT(messageFor("1@0s,"), HasSubstr("\"\" in \"1@0s,\" has no time"));
    EXPECT_THAT(messageFor("1@0s,600@4s"), HasSubstr("from -100 to 100, not \"600\""));
    for (const char* marks : {"1@0s,2@4s,3@4s", "1@0s,2@4s,3@2s", "1@4s,3@100f"}) {
        EXPECT_THAT(messageFor(marks), HasSubstr("is not later than the mark before it")) << marks;
    }
    EXPECT_THAT(messageFor("1@0f", 0), AllOf(HasSubstr("no frame rate"), HasSubstr("in seconds")));
}

}  // namespace
}  // namespace brushworks::host
