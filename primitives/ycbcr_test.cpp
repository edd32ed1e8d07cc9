// Packed 4:2:2 against its formulas worked pair by pair, in every variant.
#include "primitives/ycbcr.h"

#include <cmath>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;
using testing::kEdgeSizes;
using Bytes = GuardedImage<std::uint8_t>;

std::uint8_t ToByte(float x) {
    if (!(x > 0)) return 0;
    return x >= 255 ? 255 : static_cast<std::uint8_t>(std::nearbyint(x));
}

Bytes ExpectedPacked(const Bytes& src, Bytes dst) {
    const auto [width, height] = src.size();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const auto chroma = [&](int px, float r, float g, float b) {
                return r * src.at(px, y, 2) + g * src.at(px, y, 1) + b * src.at(px, y, 0) + 128.0f;
            };
            dst.at(x, y, 0) = ToByte(0.257f * src.at(x, y, 2) + 0.504f * src.at(x, y, 1) +
                                     0.098f * src.at(x, y, 0) + 16.0f);
            const int first = x & ~1, second = first + 1 < width ? first + 1 : first;
            const auto mean = [&](float r, float g, float b) {
                return ToByte((chroma(first, r, g, b) + chroma(second, r, g, b)) / 2.0f);
            };
            dst.at(x, y, 1) =
                x % 2 ? mean(0.439f, -0.368f, -0.071f) : mean(-0.148f, -0.291f, 0.439f);
        }
    return dst;
}

Bytes ExpectedBgr(const Bytes& src, Bytes dst, std::uint8_t alpha) {
    const auto [width, height] = src.size();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int pair = x & ~1;
            const bool odd = pair + 1 == width;
            const float Y = src.at(x, y, 0), Cb = src.at(pair, y, 1);
            const float Cr = !odd ? src.at(pair + 1, y, 1) : x > 0 ? src.at(x - 1, y, 1) : 128;
            dst.at(x, y, 0) = ToByte(1.164f * (Y - 16) + 2.017f * (Cb - 128));
            dst.at(x, y, 1) = ToByte(1.164f * (Y - 16) - 0.813f * (Cr - 128) - 0.392f * (Cb - 128));
            dst.at(x, y, 2) = ToByte(1.164f * (Y - 16) + 1.596f * (Cr - 128));
            dst.at(x, y, 3) = alpha;
        }
    return dst;
}

TEST(YCbCr, MatchesTheFormulasOnEdgeSizes) {
    ForEachVariant([](Variant) {
        for (const IppiSize size : kEdgeSizes) {
            Bytes bgr(size, 4, 20), packed(size, 2);
            bgr.Randomize(1);
            ASSERT_EQ(ippiBGRToYCbCr422_8u_AC4C2R(bgr.data(), bgr.step(), packed.data(),
                                                  packed.step(), size),
                      kStatusOk);
            ASSERT_TRUE(packed == ExpectedPacked(bgr, packed)) << size.width;

            packed.Randomize(3);
            ASSERT_EQ(ippiYCbCr422ToBGR_8u_C2C4R(packed.data(), packed.step(), bgr.data(),
                                                 bgr.step(), size, 200),
                      kStatusOk);
            ASSERT_TRUE(bgr == ExpectedBgr(packed, bgr, 200)) << size.width;
        }
    });
}

// Studio range: black is 16, white 235, and neither carries chroma; both come back.
TEST(YCbCr, BlackAndWhiteComeBack) {
    ForEachVariant([](Variant) {
        for (const std::uint8_t level : {0, 255}) {
            std::uint8_t bgr[12], packed[6] = {};
            std::memset(bgr, level, sizeof bgr);
            ASSERT_EQ(ippiBGRToYCbCr422_8u_AC4C2R(bgr, 12, packed, 6, {3, 1}), kStatusOk);
            const std::uint8_t luma = level ? 235 : 16;
            const std::uint8_t expected[6] = {luma, 128, luma, 128, luma, 128};
            EXPECT_EQ(std::memcmp(packed, expected, 6), 0);
            std::uint8_t back[12] = {};
            ASSERT_EQ(ippiYCbCr422ToBGR_8u_C2C4R(packed, 6, back, 12, {3, 1}, level), kStatusOk);
            EXPECT_EQ(std::memcmp(back, bgr, 12), 0);
        }
    });
}

TEST(YCbCr, RefusesBadArguments) {
    std::uint8_t a[8] = {}, b[4] = {};
    EXPECT_EQ(ippiBGRToYCbCr422_8u_AC4C2R(a, 0, nullptr, 0, {0, 0}), kStatusNullPointer);
    EXPECT_EQ(ippiBGRToYCbCr422_8u_AC4C2R(a, 8, b, 4, {2, 0}), kStatusSizeError);
    EXPECT_EQ(ippiBGRToYCbCr422_8u_AC4C2R(a, 7, b, 4, {2, 1}), kStatusStepError);
    EXPECT_EQ(ippiYCbCr422ToBGR_8u_C2C4R(b, 3, a, 8, {2, 1}, 0), kStatusStepError);
}

}  // namespace
}  // namespace brushworks
