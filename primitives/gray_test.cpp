// Gray against integer sums, in every variant.
#include "primitives/gray.h"

#include <algorithm>
#include <limits>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ExpectPerPixel;

/// A pixel's sum by whole coefficients of 4096.
auto SumBy(int c0, int c1, int c2) {
    return [=](const std::uint8_t* from, std::uint8_t* to) {
        const int sum = c0 * from[0] + c1 * from[1] + c2 * from[2];
        *to = static_cast<std::uint8_t>(std::clamp(sum >> 12, 0, 255));
    };
}

TEST(Gray, MatchesIntegerSums) {
    const auto fixed = SumBy(1225, 2404, 467);
    ExpectPerPixel<std::uint8_t, std::uint8_t>("C3", {3}, {1}, ippiRGBToGray_8u_C3C1R, fixed);
    for (const int missing : {0, 1}) {
        const testing::Layout four{4, 12, missing};
        ExpectPerPixel<std::uint8_t, std::uint8_t>("AC4", four, {1}, ippiRGBToGray_8u_AC4C1R,
                                                   fixed);
        // 0.114, 0.587, 0.299 scale to 467, 2404, 1225; the others overshoot both ends.
        const struct {
            float given[3];
            int scaled[3];
        } cases[] = {{{0.114f, 0.587f, 0.299f}, {467, 2404, 1225}},
                     {{-0.3f, 1.9f, -0.7f}, {-1228, 7782, -2866}},
                     {{-0.25f, 16.0f - 0.5f, 0.25f}, {-1023, 63488, 1024}}};
        for (const auto& weights : cases)
            ExpectPerPixel<std::uint8_t, std::uint8_t>(
                "any", four, {1},
                [&](auto... images) { return ippiColorToGray_8u_AC4C1R(images..., weights.given); },
                SumBy(weights.scaled[0], weights.scaled[1], weights.scaled[2]));
    }
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
