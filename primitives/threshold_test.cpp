// The threshold, in every variant.
#include "primitives/threshold.h"

#include <cmath>

#include "primitives/testing.h"

namespace brushworks {
namespace {

constexpr float kThresholds[4] = {0.5f, 0.0f, 2.0f, -1.0f};
constexpr float kValues[4] = {7.0f, -8.0f, 0.25f, 9.0f};

TEST(Threshold, EachChannelHasItsOwn) {
    testing::ExpectInPlace<float>(
        "LTVal", {4},
        [](float* image, int step, IppiSize size) {
            return ippiThreshold_LTVal_32f_C4IR(image, step, size, kThresholds, kValues);
        },
        [](float* s) {
            for (int c = 0; c < 4; ++c)
                if (s[c] < kThresholds[c]) s[c] = kValues[c];
        });
}

TEST(Threshold, KeepsEqualSamplesAndNaN) {
    testing::ForEachVariant([](Variant) {
        float pixels[40];
        for (int i = 0; i < 40; ++i) pixels[i] = i % 8 < 4 ? kThresholds[i % 4] : std::nanf("");
        ASSERT_EQ(ippiThreshold_LTVal_32f_C4IR(pixels, 160, {10, 1}, kThresholds, kValues),
                  kStatusOk);
        for (int i = 0; i < 40; ++i)
            EXPECT_TRUE(i % 8 < 4 ? pixels[i] == kThresholds[i % 4] : std::isnan(pixels[i])) << i;
    });
}

TEST(Threshold, Statuses) {
    float pixel[4] = {};
    EXPECT_EQ(ippiThreshold_LTVal_32f_C4IR(pixel, 16, {0, 0}, nullptr, kValues),
              kStatusNullPointer);
    EXPECT_EQ(ippiThreshold_LTVal_32f_C4IR(pixel, 16, {0, 0}, kThresholds, nullptr),
              kStatusNullPointer);
    EXPECT_EQ(ippiThreshold_LTVal_32f_C4IR(pixel, 15, {1, 1}, kThresholds, kValues),
              kStatusStepError);
}

}  // namespace
}  // namespace brushworks
