// Gray against integer sums, in every variant.
#include "primitives/gray.h"

#include <algorithm>
#include <limits>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;
using testing::kEdgeSizes;
using Bytes = GuardedImage<std::uint8_t>;

Bytes Expected(const Bytes& src, Bytes dst, int c0, int c1, int c2) {
    for (int y = 0; y < src.size().height; ++y)
        for (int x = 0; x < src.size().width; ++x) {
            const int sum = c0 * src.at(x, y, 0) + c1 * src.at(x, y, 1) + c2 * src.at(x, y, 2);
            dst.at(x, y) = static_cast<std::uint8_t>(std::clamp(sum >> 12, 0, 255));
        }
    return dst;
}

TEST(Gray, MatchesIntegerSumsOnEdgeSizes) {
    ForEachVariant([](Variant) {
        for (const IppiSize size : kEdgeSizes) {
            Bytes three(size, 3, 20), four(size, 4, 20), dst(size, 1);
            three.Randomize(1);
            four.Randomize(2);
            ASSERT_EQ(
                ippiRGBToGray_8u_C3C1R(three.data(), three.step(), dst.data(), dst.step(), size),
                kStatusOk);
            ASSERT_TRUE(dst == Expected(three, dst, 1225, 2404, 467)) << size.width;
            ASSERT_EQ(
                ippiRGBToGray_8u_AC4C1R(four.data(), four.step(), dst.data(), dst.step(), size),
                kStatusOk);
            ASSERT_TRUE(dst == Expected(four, dst, 1225, 2404, 467)) << size.width;

            // 0.114, 0.587, 0.299 scale to 467, 2404, 1225; the others overshoot both ends.
            const struct {
                float given[3];
                int scaled[3];
            } cases[] = {{{0.114f, 0.587f, 0.299f}, {467, 2404, 1225}},
                         {{-0.3f, 1.9f, -0.7f}, {-1228, 7782, -2866}},
                         {{-0.25f, 16.0f - 0.5f, 0.25f}, {-1023, 63488, 1024}}};
            for (const auto& weights : cases) {
                ASSERT_EQ(ippiColorToGray_8u_AC4C1R(four.data(), four.step(), dst.data(),
                                                    dst.step(), size, weights.given),
                          kStatusOk);
                const int* c = weights.scaled;
                ASSERT_TRUE(dst == Expected(four, dst, c[0], c[1], c[2])) << size.width;
            }
        }
    });
}

TEST(Gray, KeepsGrays) {
    Bytes src({256, 1}, 4), dst({256, 1}, 1);
    for (int x = 0; x < 256; ++x)
        for (int c = 0; c < 4; ++c) src.at(x, 0, c) = static_cast<std::uint8_t>(x);
    ForEachVariant([&](Variant) {
        ASSERT_EQ(ippiRGBToGray_8u_AC4C1R(src.data(), src.step(), dst.data(), dst.step(), {256, 1}),
                  kStatusOk);
        for (int x = 0; x < 256; ++x) ASSERT_EQ(dst.at(x, 0), x);
    });
}

TEST(Gray, RefusesBadArguments) {
    const std::uint8_t src[8] = {200, 0, 0, 0};
    std::uint8_t dst[2] = {7, 7};
    const auto status = [&](float a, float b, float c) {
        const float weights[3] = {a, b, c};
        return ippiColorToGray_8u_AC4C1R(src, 8, dst, 2, {2, 1}, weights);
    };
    EXPECT_EQ(status(17, 0, 0), kStatusBadArgument);
    EXPECT_EQ(status(8, -8, 1), kStatusBadArgument);
    EXPECT_EQ(status(0, std::numeric_limits<float>::infinity(), 0), kStatusBadArgument);
    EXPECT_EQ(dst[0], 7);
    EXPECT_EQ(status(0.5f, std::numeric_limits<float>::quiet_NaN(), 0), kStatusOk);
    EXPECT_EQ(dst[0], 100);
    EXPECT_EQ(ippiColorToGray_8u_AC4C1R(src, 0, dst, 0, {0, 0}, nullptr), kStatusNullPointer);
    EXPECT_EQ(ippiRGBToGray_8u_C3C1R(src, 0, dst, 0, {0, 0}), kStatusSizeError);
    EXPECT_EQ(ippiRGBToGray_8u_C3C1R(src, 5, dst, 2, {2, 1}), kStatusStepError);
}

}  // namespace
}  // namespace brushworks
