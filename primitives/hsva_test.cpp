// Hue, saturation, value and alpha against the formulas worked pixel by pixel, in every variant.
#include "primitives/hsva.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <vector>

#include "primitives/testing.h"

namespace brushworks {
namespace {

struct Triple {
    float c[3];
};

Triple ReferenceHsv(const Triple& p) {
    const float x0 = p.c[0], x1 = p.c[1], x2 = p.c[2];
    const float mx = std::max({x0, x1, x2}), mn = std::min({x0, x1, x2});
    if (!(mx > 0.0f) || !(mn < mx)) return {0.0f, 0.0f, mx};
    const float i = 1.0f / (mx - mn);
    const float r0 = (mx - x0) * i, r1 = (mx - x1) * i, r2 = (mx - x2) * i;
    float h = 0.0f;
    if (mx == x0)
        h = (r2 - r1) * 60.0f;
    else if (mx == x1)
        h = (r0 + 2.0f - r2) * 60.0f;
    else if (mx == x2)
        h = (r1 + 4.0f - r0) * 60.0f;
    if (h < 0.0f) h += 360.0f;
    return {h / 360.0f, (mx - mn) / mx, mx};
}

Triple ReferenceRgb(const Triple& p) {
    const float s = p.c[1], v = p.c[2];
    if (!(s > 0.0f)) return {v, v, v};
    const float mn = (1.0f - s) * v, d = v - mn;
    float sector = p.c[0] * 360.0f;
    if (sector >= 300.0f) sector -= 360.0f;
    sector /= 60.0f;
    if (sector >= -1.0f && sector <= 1.0f) {
        const float t = sector * d;
        return t < 0.0f ? Triple{v, mn, mn - t} : Triple{v, mn + t, mn};
    }
    if (sector > 1.0f && sector <= 3.0f) {
        const float t = (sector - 2.0f) * d;
        return t < 0.0f ? Triple{mn - t, v, mn} : Triple{mn, v, mn + t};
    }
    if (sector > 3.0f && sector < 5.0f) {
        const float t = (sector - 4.0f) * d;
        return t < 0.0f ? Triple{mn, mn - t, v} : Triple{mn + t, mn, v};
    }
    return {0.0f, 0.0f, 0.0f};
}

using Formula = Triple(const Triple&);

/// A pixel by a formula, from one place of alpha to another; bytes as parts of 255.
template <class Sample>
auto PixelBy(Formula* formula, AlphaAt from, AlphaAt to) {
    return [=](const Sample* src, Sample* dst) {
        const auto at = [](AlphaAt alpha, int i) { return alpha == AlphaAt::kFirst ? 3 - i : i; };
        constexpr bool kFloats = std::is_same_v<Sample, float>;
        Triple p;
        for (int i = 0; i < 3; ++i)
            p.c[i] = static_cast<float>(src[at(from, i)]) * (kFloats ? 1.0f : 0.003921569f);
        const Triple q = formula(p);
        for (int i = 0; i < 3; ++i)
            dst[at(to, i)] = static_cast<Sample>(kFloats ? q.c[i] : q.c[i] * 255.0f);
        dst[at(to, 3)] = src[at(from, 3)];
    };
}

template <class Convert>
auto With(Convert* convert, AlphaAt alpha) {
    return [=](auto... images) { return convert(images..., alpha); };
}

TEST(Hsva, MatchesTheFormulasOnEdgeSizes) {
    const testing::Layout four{4};
    constexpr AlphaAt kFirst = AlphaAt::kFirst, kLast = AlphaAt::kLast;
    for (const AlphaAt alpha : {kFirst, kLast}) {
        testing::ExpectPerPixel<float, float>("to", four, four, With(HsvaFromFloats_C4R, alpha),
                                              PixelBy<float>(ReferenceHsv, alpha, kLast));
        testing::ExpectPerPixel<float, float>("back", four, four, With(FloatsFromHsva_C4R, alpha),
                                              PixelBy<float>(ReferenceRgb, kLast, alpha));
    }
    testing::ExpectPerPixel<std::uint8_t, std::uint8_t>(
        "bytes to", four, four, HsvaFromBytes_A4R,
        PixelBy<std::uint8_t>(ReferenceHsv, kFirst, kLast));
    testing::ExpectPerPixel<std::uint8_t, std::uint8_t>(
        "bytes back", four, four, BytesFromHsva_A4R,
        PixelBy<std::uint8_t>(ReferenceRgb, kLast, kFirst));
}

/// Ties, the borders of the sectors, and what no picture should hold. Which NaN comes out is open.
TEST(Hsva, TreatsEveryFloatAsTheFormulasDo) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const float samples[] = {0,        -0.0f,    1,         0.5f,       -0.5f,
                             1.0f / 6, 0.5f / 6, 5.0f / 6,  1e9f,       3e38f,
                             1e-39f,   1e-45f,   kInfinity, -kInfinity, std::nanf("")};
    std::vector<float> pixels;
    for (const float x0 : samples)
        for (const float x1 : samples)
            for (const float x2 : samples) pixels.insert(pixels.end(), {x0, x1, x2, x0});
    std::vector<float> got(pixels.size());
    const IppiSize size = {static_cast<int>(pixels.size() / 4), 1};
    const int step = size.width * 16;
    const auto compare = [&](auto* convert, Formula* formula) {
        ASSERT_EQ(convert(pixels.data(), step, got.data(), step, size, AlphaAt::kLast), kStatusOk);
        for (std::size_t i = 0; i < pixels.size(); i += 4) {
            const Triple q = formula({pixels[i], pixels[i + 1], pixels[i + 2]});
            for (std::size_t c = 0; c < 3; ++c)
                ASSERT_TRUE(std::bit_cast<std::uint32_t>(got[i + c]) ==
                                std::bit_cast<std::uint32_t>(q.c[c]) ||
                            (std::isnan(got[i + c]) && std::isnan(q.c[c])))
                    << pixels[i] << ", " << pixels[i + 1] << ", " << pixels[i + 2] << ": "
                    << got[i + c] << " for " << q.c[c];
        }
    };
    testing::ForEachVariant([&](Variant) {
        compare(HsvaFromFloats_C4R, ReferenceHsv);
        compare(FloatsFromHsva_C4R, ReferenceRgb);
    });
}

}  // namespace
}  // namespace brushworks
