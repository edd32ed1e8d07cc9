// Hue, saturation and value against the formulas worked pixel by pixel, in every variant.
#include "primitives/hsv.h"

#include <algorithm>
#include <cmath>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;
using testing::kEdgeSizes;

struct Triple {
    int s0, s1, s2;
};

Triple ReferenceHsv(Triple p, float M) {
    const int mx = std::max({p.s0, p.s1, p.s2}), mn = std::min({p.s0, p.s1, p.s2});
    if (mx == 0 || mn == mx) return {0, 0, mx};
    const float r = 1.0f / static_cast<float>(mx - mn);
    const auto times = [r](int difference) { return static_cast<float>(difference) * r; };
    float h = 0;
    if (mx == p.s0)
        h = times(p.s1 - p.s2);
    else if (mx == p.s1)
        h = 2.0f + times(mx - p.s0) - times(mx - p.s2);
    else
        h = 4.0f - times(mx - p.s0) + times(mx - p.s1);
    float x = h * M / 6.0f;
    if (x < 0) x += M;
    const float s = static_cast<float>(mx - mn) / static_cast<float>(mx) * M;
    return {static_cast<int>(x + 0.5f), static_cast<int>(s + 0.5f), mx};
}

Triple ReferenceRgb(Triple p, float M) {
    const auto V = static_cast<float>(p.s2);
    if (p.s1 == 0) return {p.s2, p.s2, p.s2};
    const float s = static_cast<float>(p.s1) / M;
    float h = static_cast<float>(p.s0) * 6.0f / M;
    if (h >= 6.0f) h -= 6.0f;
    const float i = std::floor(h), f = h - i;
    const float m = V * (1.0f - s), n = V * (1.0f - s * f), k = V * (1.0f - s * (1.0f - f));
    const float table[6][3] = {{V, k, m}, {n, V, m}, {m, V, k}, {m, n, V}, {k, m, V}, {V, m, n}};
    const float* row = table[static_cast<int>(i)];
    const auto store = [M](float x) {
        return std::clamp(static_cast<int>(x + 0.5f), 0, static_cast<int>(M));
    };
    return {store(row[0]), store(row[1]), store(row[2])};
}

template <class Sample>
using Primitive = int(const Sample*, int, Sample*, int, IppiSize);

template <class Sample>
GuardedImage<Sample> Expected(const GuardedImage<Sample>& src, GuardedImage<Sample> dst,
                              Triple (*reference)(Triple, float), bool whole = false) {
    const float M = sizeof(Sample) == 1 ? 255.0f : 65535.0f;
    for (int y = 0; y < src.size().height; ++y)
        for (int x = 0; x < src.size().width; ++x) {
            const Triple t = reference({src.at(x, y, 0), src.at(x, y, 1), src.at(x, y, 2)}, M);
            dst.at(x, y, 0) = static_cast<Sample>(t.s0);
            dst.at(x, y, 1) = static_cast<Sample>(t.s1);
            dst.at(x, y, 2) = static_cast<Sample>(t.s2);
            if (whole) dst.at(x, y, 3) = src.at(x, y, 3);
        }
    return dst;
}

/// Random pictures whose samples are masked, so that small values, grays and ties come up too.
template <class Sample>
void CompareOnEdgeSizes(Primitive<Sample>* primitive, Triple (*reference)(Triple, float),
                        bool whole = false) {
    ForEachVariant([&](Variant) {
        for (const IppiSize size : kEdgeSizes)
            for (const unsigned mask : {0xFFFFu, 0xFFu, 0xF0F0u, 3u, 1u}) {
                GuardedImage<Sample> src(size, 4, 20), dst(size, 4);
                src.Randomize(mask);
                dst.Randomize(2);
                for (int y = 0; y < size.height; ++y)
                    for (int i = 0; i < 4 * size.width; ++i) src.row(y)[i] &= mask;
                const auto expected = Expected(src, dst, reference, whole);
                ASSERT_EQ(primitive(src.data(), src.step(), dst.data(), dst.step(), size), 0);
                ASSERT_TRUE(dst == expected)
                    << size.width << " x " << size.height << " mask " << mask;
            }
    });
}

TEST(Hsv, MatchesTheFormulasOnEdgeSizes) {
    CompareOnEdgeSizes<std::uint8_t>(ippiRGBToHSV_8u_AC4R, ReferenceHsv);
    CompareOnEdgeSizes<std::uint16_t>(ippiRGBToHSV_16u_AC4R, ReferenceHsv);
    CompareOnEdgeSizes<std::uint8_t>(ippiHSVToRGB_8u_AC4R, ReferenceRgb);
    CompareOnEdgeSizes<std::uint16_t>(ippiHSVToRGB_16u_AC4R, ReferenceRgb);
    CompareOnEdgeSizes<std::uint8_t>(HsvFromBytes_C4R, ReferenceHsv, /*whole=*/true);
    CompareOnEdgeSizes<std::uint8_t>(BytesFromHsv_C4R, ReferenceRgb, /*whole=*/true);
}

/// Every 8-bit triple, also widened to 16 bits as the effects do it. The narrow variants share the
/// text, so the two ends of the ladder stand for all.
template <class Sample>
void CompareOnAllTriples(Primitive<Sample>* primitive, Triple (*reference)(Triple, float),
                         unsigned stride) {
    const IppiSize size = {256, 256};
    GuardedImage<Sample> src(size, 4, 0), dst(size, 4, 0);
    for (unsigned s2 = 0; s2 < 256; s2 += stride) {
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x) {
                src.at(x, y, 0) = static_cast<Sample>(x);
                src.at(x, y, 1) = static_cast<Sample>(y);
                src.at(x, y, 2) = static_cast<Sample>(s2);
            }
        const auto expected = Expected(src, dst, reference);
        for (const Variant variant : {Variant::mx, BestVariant()}) {
            SelectVariant(variant);
            ASSERT_EQ(primitive(src.data(), src.step(), dst.data(), dst.step(), size), 0);
            ASSERT_TRUE(dst == expected) << VariantName(variant) << " third sample " << s2;
        }
    }
}

TEST(Hsv, MatchesTheFormulasOnAllByteTriples) {
    CompareOnAllTriples<std::uint8_t>(ippiRGBToHSV_8u_AC4R, ReferenceHsv, 1);
    CompareOnAllTriples<std::uint8_t>(ippiHSVToRGB_8u_AC4R, ReferenceRgb, 1);
    CompareOnAllTriples<std::uint16_t>(ippiRGBToHSV_16u_AC4R, ReferenceHsv, 5);
    CompareOnAllTriples<std::uint16_t>(ippiHSVToRGB_16u_AC4R, ReferenceRgb, 5);
}

// The hue M stands for the full turn: the same colour as hue 0.
TEST(Hsv, FullTurnIsNoTurn) {
    ForEachVariant([](Variant) {
        const std::uint16_t hsv[8] = {65535, 40000, 30000, 0, 0, 40000, 30000, 0};
        std::uint16_t rgb[8] = {};
        ASSERT_EQ(ippiHSVToRGB_16u_AC4R(hsv, 16, rgb, 16, {2, 1}), 0);
        EXPECT_EQ(std::memcmp(rgb, rgb + 4, 6), 0);
        EXPECT_EQ(rgb[0], 30000);
    });
}

TEST(Hsv, RefusesBadArguments) {
    std::uint8_t a[16] = {}, b[16] = {};
    EXPECT_EQ(ippiRGBToHSV_8u_AC4R(nullptr, 0, b, 0, {0, 0}), kStatusNullPointer);
    EXPECT_EQ(ippiRGBToHSV_8u_AC4R(a, 0, b, 0, {0, 1}), kStatusSizeError);
    EXPECT_EQ(ippiHSVToRGB_8u_AC4R(a, 15, b, 16, {4, 1}), kStatusStepError);
    EXPECT_EQ(ippiHSVToRGB_8u_AC4R(a, 16, b, 16, {4, 1}), kStatusOk);
}

}  // namespace
}  // namespace brushworks
