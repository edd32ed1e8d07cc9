// The channel permutation, in every variant.
#include "primitives/swap.h"

#include "primitives/testing.h"

namespace brushworks {
namespace {

TEST(Swap, PermutesAndRepeats) {
    const int orders[][4] = {{2, 1, 0, 3}, {3, 2, 1, 0}, {1, 1, 3, 0}, {0, 1, 2, 3}};
    for (const auto& order : orders)
        testing::ExpectInPlace<std::uint8_t>(
            "8u_C4", {4},
            [&](std::uint8_t* image, int step, IppiSize size) {
                return ippiSwapChannels_8u_C4IR(image, step, size, order);
            },
            [&](std::uint8_t* pixel) {
                const std::uint8_t old[4] = {pixel[0], pixel[1], pixel[2], pixel[3]};
                for (int k = 0; k < 4; ++k) pixel[k] = old[order[k]];
            });
}

TEST(Swap, Reverses) {
    testing::ExpectPerPixel<std::uint8_t, std::uint8_t>(
        "bytes", {4}, {4}, ReverseBytes_C4R, [](const std::uint8_t* from, std::uint8_t* to) {
            for (int k = 0; k < 4; ++k) to[k] = from[3 - k];
        });
}

TEST(Swap, Statuses) {
    std::uint8_t pixel[4] = {1, 2, 3, 4};
    const int good[4] = {0, 1, 2, 3}, high[4] = {0, 1, 2, 4}, low[4] = {-1, 1, 2, 3};
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(pixel, 4, {1, 1}, nullptr), kStatusNullPointer);
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(pixel, 3, {1, 1}, high), kStatusStepError);
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(pixel, 4, {1, 1}, high), kStatusBadArgument);
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(pixel, 4, {1, 1}, low), kStatusBadArgument);
    EXPECT_EQ(pixel[0] * 1000 + pixel[1] * 100 + pixel[2] * 10 + pixel[3], 1234);
    EXPECT_EQ(ippiSwapChannels_8u_C4IR(nullptr, 4, {1, 1}, good), kStatusNullPointer);
}

}  // namespace
}  // namespace brushworks
