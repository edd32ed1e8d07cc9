// The conversions, in every variant.
#include "primitives/convert.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <gmock/gmock.h>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ExpectPerPixel;

TEST(Convert, BetweenIntegers) {
    ExpectPerPixel<std::uint16_t, std::uint8_t>("8u16u", {4}, {4}, ippiConvert_8u16u_C4R,
                                                [](const std::uint8_t* from, std::uint16_t* to) {
                                                    for (int c = 0; c < 4; ++c) to[c] = from[c];
                                                });

    ExpectPerPixel<std::uint8_t, std::uint16_t>(
        "16u8u", {4}, {4}, ippiConvert_16u8u_C4R, [](const std::uint16_t* from, std::uint8_t* to) {
            for (int c = 0; c < 4; ++c)
                to[c] = static_cast<std::uint8_t>(std::min<int>(from[c], 255));
        });
    std::uint16_t wide[8] = {0, 1, 254, 255, 256, 257, 0x1FF, 65535};
    std::uint8_t narrow[8];
    ASSERT_EQ(ippiConvert_16u8u_C4R(wide, 16, narrow, 8, {2, 1}), kStatusOk);
    EXPECT_THAT(narrow, ::testing::ElementsAre(0, 1, 254, 255, 255, 255, 255, 255));
}

TEST(Convert, IntegerToFloat) {
    for (const int missing : {0, 1})
        ExpectPerPixel<float, std::uint16_t>("16u32f", {4, 12, missing}, {4, 12, missing},
                                             ippiConvert_16u32f_AC4R,
                                             [](const std::uint16_t* from, float* to) {
                                                 for (int c = 0; c < 3; ++c) to[c] = from[c];
                                             });
}

/// The mode's rounding in double precision, where halves of 16-bit floats are exact.
std::uint16_t Rounded(float sample, int mode) {
    if (!(sample > 0.0f)) return 0;
    const double v = sample;
    const double whole = mode == kRoundTowardZero    ? std::trunc(v)
                         : mode == kRoundNearestEven ? std::nearbyint(v)
                                                     : std::round(v);
    return static_cast<std::uint16_t>(std::min(whole, 65535.0));
}

TEST(Convert, FloatToInteger) {
    for (const int mode : {kRoundTowardZero, kRoundNearestEven, kRoundFinancial})
        for (const int missing : {0, 1})
            ExpectPerPixel<std::uint16_t, float>(
                "32f16u", {4, 12, missing}, {4, 12, missing},
                [mode](const float* src, int srcStep, std::uint16_t* dst, int dstStep,
                       IppiSize size) {
                    return ippiConvert_32f16u_AC4R(src, srcStep, dst, dstStep, size, mode);
                },
                [mode](const float* from, std::uint16_t* to) {
                    for (int c = 0; c < 3; ++c) to[c] = Rounded(from[c], mode);
                },
                -3000.0f, 70000.0f);
}

TEST(Convert, FloatsThatAreHardToRound) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const float hard[] = {0.5f,      1.5f,       2.5f,          0.49999997f, -0.5f,
                          -1e-30f,   65534.5f,   65535.5f,      65535.0f,    1e30f,
                          kInfinity, -kInfinity, std::nanf(""), 4194303.5f,  3.0f};
    testing::ForEachVariant([&](Variant) {
        for (const int mode : {kRoundTowardZero, kRoundNearestEven, kRoundFinancial}) {
            float src[20] = {};
            std::uint16_t dst[20] = {};
            for (int i = 0; i < 15; ++i) src[i / 3 * 4 + i % 3] = hard[i];
            ASSERT_EQ(ippiConvert_32f16u_AC4R(src, 80, dst, 40, {5, 1}, mode), kStatusOk);
            for (int i = 0; i < 15; ++i)
                EXPECT_EQ(dst[i / 3 * 4 + i % 3], Rounded(hard[i], mode))
                    << hard[i] << ", mode " << mode;
        }
    });
}

TEST(Convert, Statuses) {
    float wide[4] = {};
    std::uint16_t narrow[4] = {7, 7, 7, 7};
    for (const int mode : {-1, 3})
        EXPECT_EQ(ippiConvert_32f16u_AC4R(wide, 16, narrow, 8, {1, 1}, mode), kStatusBadArgument);
    EXPECT_EQ(ippiConvert_32f16u_AC4R(wide, 15, narrow, 8, {1, 1}, 3), kStatusStepError);
    EXPECT_EQ(ippiConvert_16u32f_AC4R(narrow, 7, wide, 16, {1, 1}), kStatusStepError);
    EXPECT_EQ(ippiConvert_16u32f_AC4R(narrow, 8, wide, 15, {1, 1}), kStatusStepError);
    EXPECT_EQ(narrow[0], 7);
}

}  // namespace
}  // namespace brushworks
