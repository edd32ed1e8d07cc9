// Tinted luminance and products with alpha, in every variant.
#include "primitives/tint.h"

#include <algorithm>
#include <cmath>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ExpectPerPixel;

constexpr float kScale = 0.003921569f;
constexpr float kColor[3] = {255, 100, 7};

template <class Tint>
auto With(Tint* tint, AlphaAt alpha) {
    return [=](const auto* src, int srcStep, auto* dst, int dstStep, IppiSize size) {
        return tint(src, srcStep, dst, dstStep, size, kColor, alpha);
    };
}

TEST(Tint, MatchesTheFormulas) {
    for (const AlphaAt alpha : {AlphaAt::kFirst, AlphaAt::kLast}) {
        const bool first = alpha == AlphaAt::kFirst;
        const int r = first ? 1 : 2, g = first ? 2 : 1, b = first ? 3 : 0, a = first ? 0 : 3;
        const auto luminance = [=](const auto* from) {
            return 0.298f * from[r] + 0.586f * from[g] + 0.113f * from[b];
        };
        ExpectPerPixel<std::uint8_t, std::uint8_t>(
            "bytes", {4}, {4}, With(TintBytes_C4R, alpha),
            [&](const std::uint8_t* from, std::uint8_t* to) {
                const float y = luminance(from) * kScale;
                to[r] = static_cast<std::uint8_t>(kColor[0] * y);
                to[g] = static_cast<std::uint8_t>(kColor[1] * y);
                to[b] = static_cast<std::uint8_t>(kColor[2] * y);
                to[a] = static_cast<std::uint8_t>(y);
            });
        ExpectPerPixel<float, float>("floats", {4}, {4}, With(TintFloats_C4R, alpha),
                                     [&](const float* from, float* to) {
                                         const float y = std::min(luminance(from), 1.0f);
                                         to[r] = y * kColor[0] * kScale;
                                         to[g] = y * kColor[1] * kScale;
                                         to[b] = y * kColor[2] * kScale;
                                         to[a] = y * kScale;
                                     });
    }
    std::uint8_t pixel[4] = {};
    const float tooMuch[3] = {0, 256, 0}, none[3] = {0, std::nanf(""), 0};
    for (const float* color : {tooMuch, none})
        EXPECT_EQ(TintBytes_C4R(pixel, 4, pixel, 4, {1, 1}, color, AlphaAt::kLast),
                  kStatusBadArgument);
}

TEST(Tint, FadesAlphaAndColoursByIt) {
    const auto cut = [](float x) { return x > 0.0f ? std::min(x, 1.0f) : 0.0f; };
    for (const AlphaAt alpha : {AlphaAt::kFirst, AlphaAt::kLast})
        for (const int fade : {0, 77, 255, 256, 1000, 65536}) {
            const int place = alpha == AlphaAt::kFirst ? 0 : 3;
            const auto by = [=](auto* faded, auto amount) {
                return [=](auto... images) { return faded(images..., amount, alpha); };
            };
            ExpectPerPixel<std::uint8_t, std::uint8_t>(
                "bytes", {4}, {4}, by(FadeBytes_C4R, fade),
                [=](const std::uint8_t* from, std::uint8_t* to) {
                    const int t = std::min(fade * from[place] >> 8, 255);
                    for (int i = 0; i < 4; ++i)
                        to[i] = static_cast<std::uint8_t>(i == place ? t : from[i] * t >> 8);
                });
            const auto amount = static_cast<float>(fade);
            ExpectPerPixel<float, float>("floats", {4}, {4}, by(FadeFloats_C4R, amount),
                                         [=](const float* from, float* to) {
                                             const float t = cut(from[place]) * amount * kScale;
                                             for (int i = 0; i < 4; ++i)
                                                 to[i] = i == place ? t : cut(from[i]) * t;
                                         });
        }
    const float wild[4] = {std::nanf(""), HUGE_VALF, -HUGE_VALF, 2};
    float faded[4];
    ASSERT_EQ(FadeFloats_C4R(wild, 16, faded, 16, {1, 1}, 255, AlphaAt::kLast), kStatusOk);
    EXPECT_TRUE(faded[0] == 0 && faded[1] == faded[3] && faded[2] == 0 && faded[3] > 0);
    std::uint8_t pixel[4] = {};
    for (const int fade : {-1, 65537})
        EXPECT_EQ(FadeBytes_C4R(pixel, 4, pixel, 4, {1, 1}, fade, AlphaAt::kLast),
                  kStatusBadArgument);
}

TEST(Tint, MultipliesByAlpha) {
    ExpectPerPixel<std::uint8_t, std::uint8_t>(
        "bytes", {4}, {4}, PremultiplyBytes_A4R, [](const std::uint8_t* from, std::uint8_t* to) {
            for (int i = 1; i < 4; ++i) to[i] = static_cast<std::uint8_t>(from[0] * from[i] / 255);
        });
    for (const AlphaAt alpha : {AlphaAt::kFirst, AlphaAt::kLast}) {
        const int place = alpha == AlphaAt::kFirst ? 0 : 3;
        ExpectPerPixel<float, float>(
            "floats", {4}, {4},
            [alpha](const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
                return PremultiplyFloats_C4R(src, srcStep, dst, dstStep, size, alpha);
            },
            [place](const float* from, float* to) {
                for (int i = 0; i < 4; ++i)
                    if (i != place) to[i] = from[i] * from[place];
            });
    }
}

}  // namespace
}  // namespace brushworks
