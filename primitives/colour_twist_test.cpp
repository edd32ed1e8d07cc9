// The colour matrix against its sums worked sample by sample, in every variant.
#include "primitives/colour_twist.h"

#include <cmath>
#include <limits>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;
using testing::kEdgeSizes;

constexpr float kTwist[3][4] = {
    {0.7f, 0.45f, -0.2f, 3.5f}, {-0.4f, 1.3f, 0.15f, -7.25f}, {0.11f, -0.9f, 1.9f, 20.0f}};
constexpr float kIdentity[3][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};

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

template <class Sample>
GuardedImage<Sample> Expected(const GuardedImage<Sample>& src, GuardedImage<Sample> dst,
                              const float twist[3][4]) {
    for (int y = 0; y < src.size().height; ++y)
        for (int x = 0; x < src.size().width; ++x)
            for (int i = 0; i < 3; ++i) {
                const float sum = Sum(twist[i], src.at(x, y, 0), src.at(x, y, 1), src.at(x, y, 2));
                if constexpr (sizeof(Sample) == 1)
                    dst.at(x, y, i) = ToByte(sum);
                else
                    dst.at(x, y, i) = sum;
            }
    return dst;
}

TEST(ColourTwist, MatchesTheSumsOnEdgeSizes) {
    ForEachVariant([](Variant) {
        for (const IppiSize size : kEdgeSizes) {
            GuardedImage<std::uint8_t> src(size, 4, 20), dst(size, 4);
            src.Randomize(1);
            dst.Randomize(2);
            const auto expected = Expected(src, dst, kTwist);
            ASSERT_EQ(ippiColorTwist32f_8u_AC4R(src.data(), src.step(), dst.data(), dst.step(),
                                                size, kTwist),
                      kStatusOk);
            ASSERT_TRUE(dst == expected) << size.width << " x " << size.height;

            GuardedImage<float> srcF(size, 4, 20), dstF(size, 4);
            srcF.Randomize(1);
            dstF.Randomize(2);
            const auto expectedF = Expected(srcF, dstF, kTwist);
            ASSERT_EQ(ippiColorTwist_32f_AC4R(srcF.data(), srcF.step(), dstF.data(), dstF.step(),
                                              size, kTwist),
                      kStatusOk);
            ASSERT_TRUE(dstF == expectedF) << size.width << " x " << size.height;

            const auto expectedInPlace = Expected(srcF, srcF, kTwist);
            ASSERT_EQ(ippiColorTwist_32f_AC4IR(srcF.data(), srcF.step(), size, kTwist), kStatusOk);
            ASSERT_TRUE(srcF == expectedInPlace) << size.width << " x " << size.height;
        }
    });
}

TEST(ColourTwist, WholePixelsWithAlphaAtEitherEnd) {
    const testing::Layout four{4};
    for (const AlphaAt alpha : {AlphaAt::kFirst, AlphaAt::kLast}) {
        const auto call = [alpha](auto* twist) {
            return [=](auto... images) { return twist(images..., kTwist, alpha); };
        };
        const auto reference = [alpha](auto convert) {
            return [=](const auto* from, auto* to) {
                const bool first = alpha == AlphaAt::kFirst;
                const auto at = [first](int channel) { return first ? 3 - channel : channel; };
                for (int i = 0; i < 3; ++i)
                    to[at(i)] = convert(Sum(kTwist[i], from[at(0)], from[at(1)], from[at(2)]));
                to[at(3)] = from[at(3)];
            };
        };
        testing::ExpectPerPixel<std::uint8_t, std::uint8_t>(
            "bytes", four, four, call(TwistBytes_C4R), reference(ToByte));
        testing::ExpectPerPixel<float, float>(
            "floats", four, four, call(TwistUnit_C4R),
            reference([](float sum) { return sum > 0 ? std::fmin(sum, 1.0f) : 0.0f; }), -8.0f,
            8.0f);
    }
}

TEST(ColourTwist, IdentityKeepsThePicture) {
    ForEachVariant([](Variant) {
        GuardedImage<std::uint8_t> src({201, 9}, 4), dst = src;
        src.Randomize(5);
        dst = src;
        ASSERT_EQ(ippiColorTwist32f_8u_AC4R(src.data(), src.step(), dst.data(), dst.step(),
                                            src.size(), kIdentity),
                  kStatusOk);
        EXPECT_TRUE(dst == src);
    });
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

// Callers may start one sample into their pixels, so that the last fourth sample is not theirs:
// the address sanitizer sees a touch of it.
TEST(ColourTwist, LeavesWhatLiesBehindTheLastThirdSample) {
    ForEachVariant([](Variant) {
        for (const int width : {1, 4, 8, 16, 33}) {
            std::vector<float> image(4 * width - 1, 0.5f);
            ASSERT_EQ(ippiColorTwist_32f_AC4IR(image.data(), 16 * width, {width, 1}, kTwist),
                      kStatusOk);
            EXPECT_EQ(image.back(), Sum(kTwist[2], 0.5f, 0.5f, 0.5f));
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
