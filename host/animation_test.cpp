// Values that move over time, as people write them.
#include "host/animation.h"

#include <gmock/gmock.h>

#include "host/testing_message.h"
#include "host/value_text.h"

namespace brushworks::host {
namespace {

using ::testing::HasSubstr;

/// The value at a time, as text, at 25 frames a second from a start of 50.
std::string valueAt(ParamType type, const std::string& marks, double seconds,
                    double frameRate = 25) {
    ParameterInfo info;
    info.address = "Thing";
    info.type = type;
    info.displayMax = 100;
    info.options = {"None", "Option A"};
    return printValue(info,
                      Animation::parse(info, marks, {.value = 0.5F}, frameRate).valueAt(seconds));
}

TEST(Animation, HoldsItsEndsAndMovesBetweenMarks) {
    for (const auto& [seconds, value] :
         {std::pair{-1.0, "25"}, {1.0, "25"}, {1.5, "37.5"}, {3.0, "75"}, {1e9, "75"}}) {
        EXPECT_EQ(valueAt(kParamFloat, "25@1s,75@3s", seconds), value) << seconds;
    }
    for (const auto& [seconds, value] : {std::pair{1.0, "15.625"}, {2.0, "50"}, {5.0, "75"}}) {
        EXPECT_EQ(valueAt(kParamFloat, "0@0s ~ 100@4s, 0@8s", seconds), value) << seconds;
    }
    EXPECT_EQ(valueAt(kParamFloat, "@0s,100@1s", 0.5), "75");
    EXPECT_EQ(valueAt(kParamColor, "#ff0000@0s,#0102ff@1s", 0.5), "#800180");
    EXPECT_EQ(valueAt(kParamPoint, "0,1@0s,1,0.5@1s", 0.5), "0.5,0.75");
    // Others step at the mark, and not a frame late where a frame's time is rounded.
    EXPECT_EQ(valueAt(kParamList, "none@0s~option a@1s", 0.96), "None");
    EXPECT_EQ(valueAt(kParamList, "none@0s~option a@1s", 0.9995), "Option A");
}

TEST(Animation, ReadsTimesInEveryUnitAndRefusesTheRest) {
    for (const auto& [time, seconds] : {std::pair{"3723.5s", 3723.5},
                                        {"250ms", 0.25},
                                        {"100f", 4.0},
                                        {"1:02:03.5", 3723.5},
                                        {"90:00", 5400.0}}) {
        const std::string marks = std::string("0@0s,100@") + time + ",0@9:00:00";
        EXPECT_EQ(valueAt(kParamFloat, marks, seconds), "100") << time;
        EXPECT_EQ(valueAt(kParamFloat, marks, seconds / 2), "50") << time;
    }
    const auto message = [](const std::string& marks, double frameRate = 25) {
        return messageOf([&] { valueAt(kParamFloat, marks, 0, frameRate); });
    };
    for (const std::string time : {"", "4", "4x", "-1s", "s", "1.5f", "1:60", "1:60:00", "0:0:0:1",
                                   ":1", "1:", "infs", "1 s", "4m"}) {
        EXPECT_THAT(message("1@" + time), HasSubstr("usage: Thing: \"" + time + "\" is no time"));
    }
    for (const char* marks : {"1@0s,2@4s,3@4s", "1@0s,2@4s,3@2s", "1@4s,3@100f"}) {
        EXPECT_THAT(message(marks), HasSubstr("is not later than the mark before it")) << marks;
    }
    EXPECT_THAT(message("1@0s,60"), HasSubstr("\"60\" in \"1@0s,60\" has no time"));
    EXPECT_THAT(message("1@0s,"), HasSubstr("\"\" in \"1@0s,\" has no time"));
    EXPECT_THAT(message("1@0s,600@4s"), HasSubstr("from 0 to 100, not \"600\""));
    EXPECT_THAT(message("1@0f", 0), HasSubstr("no frame rate"));
}

}  // namespace
}  // namespace brushworks::host
