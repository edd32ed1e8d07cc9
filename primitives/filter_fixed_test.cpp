// Sharpening and the box mean against float arithmetic on each pixel's mask, in every variant.
#include "primitives/filter_fixed.h"

#include <cmath>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;
using testing::kEdgeSizes;

std::uint8_t R8(float v) {
    return static_cast<std::uint8_t>(v <= 0 ? 0 : v >= 255 ? 255 : std::nearbyint(v));
}

/// The sum of the mask's samples around a source pixel.
int MaskSum(const GuardedImage<std::uint8_t>& src, int x, int y, int channel, int half) {
    int sum = 0;
    for (int j = -half; j <= half; ++j)
        for (int i = -half; i <= half; ++i) sum += src.at(x + i, y + j, channel);
    return sum;
}

/// Random pictures with few levels too, so that ties come up, in pieces of all widths.
TEST(FilterFixed, Sharpen) {
    ForEachVariant([](Variant) {
        for (IppiSize size : kEdgeSizes)
            for (const int levels : {0xFF, 0x03}) {
                if (size.width == 201) size.width = 701;  // more than one piece
                const IppiSize wide{size.width + 2, size.height + 2};
                GuardedImage<std::uint8_t> src(wide, 4, 12, 1), dst(size, 4, 20, 1);
                src.Randomize(1);
                dst.Randomize(2);
                for (int y = 0; y < wide.height; ++y)
                    for (int i = 0; i < 4 * wide.width - 1; ++i)
                        src.row(y)[i] = static_cast<std::uint8_t>(src.row(y)[i] & levels);
                auto expected = dst;
                for (int y = 0; y < size.height; ++y)
                    for (int x = 0; x < size.width; ++x)
                        for (int c = 0; c < 3; ++c) {
                            const int centre = src.at(x + 1, y + 1, c);
                            const int around = MaskSum(src, x + 1, y + 1, c, 1) - centre;
                            expected.at(x, y, c) = R8(2.0f * static_cast<float>(centre) -
                                                      static_cast<float>(around) / 8.0f);
                        }
                ASSERT_EQ(ippiFilterSharpen_8u_AC4R(&src.at(1, 1), src.step(), dst.data(),
                                                    dst.step(), size),
                          kStatusOk);
                ASSERT_TRUE(dst == expected) << size.width << " x " << size.height;
            }
    });
}

TEST(FilterFixed, Lowpass) {
    ForEachVariant([](Variant) {
        for (IppiSize size : kEdgeSizes)
            for (const int mask : {kMask3x3, kMask5x5}) {
                if (size.width == 201) size.width = 2201;
                const int half = mask == kMask3x3 ? 1 : 2, side = 2 * half + 1;
                const IppiSize wide{size.width + 2 * half, size.height + 2 * half};
                GuardedImage<std::uint8_t> src(wide, 1), dst(size, 1, 20);
                src.Randomize(1);
                auto expected = dst;
                for (int y = 0; y < size.height; ++y)
                    for (int x = 0; x < size.width; ++x)
                        expected.at(x, y) =
                            R8(static_cast<float>(MaskSum(src, x + half, y + half, 0, half)) /
                               static_cast<float>(side * side));
                ASSERT_EQ(ippiFilterLowpass_8u_C1R(&src.at(half, half), src.step(), dst.data(),
                                                   dst.step(), size, mask),
                          kStatusOk);
                ASSERT_TRUE(dst == expected) << size.width << " x " << size.height << " " << mask;
            }
    });
}

TEST(FilterFixed, Statuses) {
    std::uint8_t src[64] = {}, dst[4] = {7, 7, 7, 7};
    EXPECT_EQ(ippiFilterSharpen_8u_AC4R(nullptr, 0, dst, 0, {0, 0}), kStatusNullPointer);
    EXPECT_EQ(ippiFilterSharpen_8u_AC4R(src + 20, 16, dst, 4, {1, 0}), kStatusSizeError);
    EXPECT_EQ(ippiFilterSharpen_8u_AC4R(src + 20, 3, dst, 4, {1, 1}), kStatusStepError);
    EXPECT_EQ(ippiFilterLowpass_8u_C1R(src + 20, 8, dst, 0, {1, 1}, 7), kStatusStepError);
    for (const int mask : {0, 3, 35, 53, -33})
        EXPECT_EQ(ippiFilterLowpass_8u_C1R(src + 20, 8, dst, 4, {1, 1}, mask), kStatusBadArgument);
    EXPECT_EQ(dst[0], 7);
}

}  // namespace
}  // namespace brushworks
