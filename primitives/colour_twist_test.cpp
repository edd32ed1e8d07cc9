// The colour matrix against its sums worked sample by sample, in every variant.
#include "primitives/colour_twist.h"

#include <cmath>
#include <limits>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ExpectPerPixel;
using testing::ForEachVariant;

constexpr float kTwist[3][4] = {
    {0.7f, 0.45f, -0.2f, 3.5f}, {-0.4f, 1.3f, 0.15f, -7.25f}, {0.11f, -0.9f, 1.9f, 20.0f}};

float Sum(const float* row, float s0, float s1, float s2) {
    float sum = row[0] * s0;
    sum = sum + row[1] * s1;
    sum = sum + row[2] * s2;
    return sum + row[3];
}

std::uint8_t ToByte(float x) {
    if (!(x > 0)) return 0;
    return x >= 255 ? 255 : static_cast<std::uint8_t>(std::nearbyint(x));
}

/// The three sums of a pixel whose channel i stands at at(i).
template <class At, class Convert>
auto PixelBy(At at, Convert convert) {
    return [=](const auto* from, auto* to) {
        const auto s0 = from[at(0)], s1 = from[at(1)], s2 = from[at(2)];
        for (int i = 0; i < 3; ++i) to[at(i)] = convert(Sum(kTwist[i], s0, s1, s2));
    };
}

template <class Twist, class... Further>
auto With(Twist* twist, Further... further) {
    return [=](auto... images) { return twist(images..., kTwist, further...); };
}

constexpr auto kInOrder = [](int channel) { return channel; };
constexpr auto kAsItIs = [](float sum) { return sum; };

// Callers may start one sample into their pixels, so that the last fourth sample is not theirs.
TEST(ColourTwist, MatchesTheSums) {
    for (const int missing : {0, 1}) {
        const testing::Layout four{4, 12, missing};
        ExpectPerPixel<std::uint8_t, std::uint8_t>(
            "bytes", four, four, With(ippiColorTwist32f_8u_AC4R), PixelBy(kInOrder, ToByte));
        ExpectPerPixel<float, float>("floats", four, four, With(ippiColorTwist_32f_AC4R),
                                     PixelBy(kInOrder, kAsItIs));
        testing::ExpectInPlace<float>(
            "in place", four, With(ippiColorTwist_32f_AC4IR),
            [](float* pixel) { PixelBy(kInOrder, kAsItIs)(pixel, pixel); });
    }
}

TEST(ColourTwist, WholePixelsWithAlphaAtEitherEnd) {
    for (const AlphaAt alpha : {AlphaAt::kFirst, AlphaAt::kLast}) {
        const auto at = [alpha](int i) { return alpha == AlphaAt::kFirst ? 3 - i : i; };
        const auto whole = [at](auto colours) {
            return [=](const auto* from, auto* to) {
                colours(from, to);
                to[at(3)] = from[at(3)];
            };
        };
        const auto unit = [](float sum) { return sum > 0 ? std::fmin(sum, 1.0f) : 0.0f; };
        ExpectPerPixel<std::uint8_t, std::uint8_t>("bytes", {4}, {4}, With(TwistBytes_C4R, alpha),
                                                   whole(PixelBy(at, ToByte)));
        ExpectPerPixel<float, float>("floats", {4}, {4}, With(TwistUnit_C4R, alpha),
                                     whole(PixelBy(at, unit)), -8.0f, 8.0f);
    }
}

TEST(ColourTwist, RoundsTiesToEvenAndCuts) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        float sum;
        int stored;
    } cases[] = {{2.5f, 2},     {3.5f, 4},        {254.5f, 254},   {254.51f, 255}, {1e30f, 255},
                 {0.5f, 0},     {0.501f, 1},      {-1e30f, 0},     {-0.4f, 0},     {nan, 0},
                 {255.4f, 255}, {0.49999997f, 0}, {HUGE_VALF, 255}};
    ForEachVariant([&](Variant) {
        for (const auto& known : cases) {
            const float twist[3][4] = {{0, 0, 0, known.sum}, {0, 0, 0, known.sum}, {}};
            const std::uint8_t src[4] = {1, 2, 3, 4};
            std::uint8_t dst[4] = {9, 9, 9, 9};
            ASSERT_EQ(ippiColorTwist32f_8u_AC4R(src, 4, dst, 4, {1, 1}, twist), kStatusOk);
            EXPECT_EQ(dst[0], known.stored) << known.sum;
            EXPECT_EQ(dst[1], known.stored) << known.sum;
            EXPECT_EQ(dst[2], 0);
            EXPECT_EQ(dst[3], 9);
            const float pixel[4] = {};
            float unit[4];
            ASSERT_EQ(TwistUnit_C4R(pixel, 16, unit, 16, {1, 1}, twist, AlphaAt::kLast), kStatusOk);
            EXPECT_EQ(unit[1], known.sum > 0 ? std::fmin(known.sum, 1.0f) : 0.0f) << known.sum;
        }
    });
}

TEST(ColourTwist, RefusesBadArguments) {
    float image[8] = {};
    EXPECT_EQ(ippiColorTwist_32f_AC4IR(image, 0, {0, 0}, nullptr), kStatusNullPointer);
    EXPECT_EQ(ippiColorTwist_32f_AC4IR(nullptr, 0, {0, 0}, kTwist), kStatusNullPointer);
    EXPECT_EQ(ippiColorTwist_32f_AC4IR(image, 0, {1, 0}, kTwist), kStatusSizeError);
    EXPECT_EQ(ippiColorTwist_32f_AC4IR(image, 31, {2, 1}, kTwist), kStatusStepError);
    EXPECT_EQ(image[0], 0.0f);
}

}  // namespace
}  // namespace brushworks
