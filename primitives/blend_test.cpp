// Mixtures of two pictures against plain references, in every variant.
#include "primitives/blend.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::GuardedImage;

/// Calls a blend on random pictures (bytes also drawn to their extremes) and compares with the
/// reference for one pixel: reference(a, b, dst).
template <class Sample, class Call, class Reference>
void Expect(const char* name, int channels, Call call, Reference reference) {
    SCOPED_TRACE(name);
    testing::ForEachVariant([&](Variant) {
        for (const IppiSize size : testing::kEdgeSizes)
            for (const int slack : {0, 16}) {
                GuardedImage<Sample> a(size, channels, slack), b(size, channels, slack),
                    dst(size, channels, slack);
                a.Randomize(1);
                b.Randomize(2);
                dst.Randomize(3);
                for (int y = 0; y < size.height; ++y)
                    for (int i = 0; i < channels * size.width; i += 5)
                        b.row(y)[i] = static_cast<Sample>(std::is_same_v<Sample, float> ? 1 : 255);
                GuardedImage<Sample> expected(dst);
                for (int y = 0; y < size.height; ++y)
                    for (int x = 0; x < size.width; ++x)
                        reference(&a.at(x, y), &b.at(x, y), &expected.at(x, y));
                ASSERT_EQ(
                    call(a.data(), a.step(), b.data(), b.step(), dst.data(), dst.step(), size),
                    kStatusOk);
                ASSERT_TRUE(dst == expected) << size.width << " x " << size.height;
            }
    });
}

template <class Blend, class... Further>
auto With(Blend* blend, Further... further) {
    return [=](auto... images) { return blend(images..., further...); };
}

std::uint8_t DodgeByte(int base, int blend) {
    return static_cast<std::uint8_t>(blend == 255 ? 255
                                                  : std::min((base << 8) / (255 - blend), 255));
}

float DodgeFloat(float base, float blend) {
    if (blend == 1.0f) return 1.0f;
    const float quotient = base / (1.0f - blend);
    return quotient > 1.0f ? 1.0f : quotient;
}

TEST(Blend, Mixes) {
    const int weights[][2] = {{0, 255}, {255, 0}, {128, 127}, {128, 128}, {255, 255}, {1, 3}};
    for (const auto& w : weights)
        Expect<std::uint8_t>("bytes", 1, With(MixBytes_C1R, w[0], w[1]),
                             [&w](const auto* a, const auto* b, auto* to) {
                                 const int mean = (*a * w[0] + *b * w[1]) / 255;
                                 *to = static_cast<std::uint8_t>(std::min(mean, 255));
                             });
    for (const float most : {1.0f, std::numeric_limits<float>::infinity()})
        Expect<float>("floats", 1, With(MixFloats_C1R, 0.7f, 0.6f, most),
                      [most](const float* a, const float* b, float* to) {
                          *to = std::min(0.7f * *a + 0.6f * *b, most);
                      });
    std::uint8_t byte = 0;
    EXPECT_EQ(MixBytes_C1R(&byte, 1, &byte, 1, &byte, 1, {1, 1}, 256, 0), kStatusBadArgument);
    EXPECT_EQ(MixBytes_C1R(&byte, 1, nullptr, 1, &byte, 1, {1, 1}, 1, 0), kStatusNullPointer);
}

// All pairs of bytes at once: the quotients that a reciprocal or a rounded division would miss.
TEST(Blend, DodgesEveryPairOfBytes) {
    testing::ForEachVariant([](Variant) {
        std::uint8_t base[256], blend[256], dst[256];
        for (int v = 0; v < 256; ++v) {
            for (int i = 0; i < 256; ++i) {
                base[i] = static_cast<std::uint8_t>(i);
                blend[i] = static_cast<std::uint8_t>(v);
            }
            ASSERT_EQ(DodgeBytes_C1R(base, 256, blend, 256, dst, 256, {256, 1}), kStatusOk);
            for (int i = 0; i < 256; ++i) ASSERT_EQ(dst[i], DodgeByte(i, v)) << i << " by " << v;
        }
    });
}

TEST(Blend, DodgesColoursAndLeavesAlpha) {
    for (const AlphaAt alpha : {AlphaAt::kFirst, AlphaAt::kLast}) {
        const int first = alpha == AlphaAt::kFirst ? 1 : 0;
        const int red = alpha == AlphaAt::kFirst ? 1 : 2;
        Expect<std::uint8_t>("bytes", 4, With(DodgeBytes_C4R, alpha),
                             [first](const auto* a, const auto* b, auto* to) {
                                 for (int i = first; i < first + 3; ++i)
                                     to[i] = DodgeByte(a[i], b[i]);
                             });
        Expect<std::uint8_t>("bytes by red", 4, With(DodgeBytesMono_C4R, alpha),
                             [first, red](const auto* a, const auto* b, auto* to) {
                                 for (int i = first; i < first + 3; ++i)
                                     to[i] = DodgeByte(a[red], b[red]);
                             });
        Expect<float>("floats", 4, With(DodgeFloats_C4R, alpha),
                      [first](const float* a, const float* b, float* to) {
                          for (int i = first; i < first + 3; ++i) to[i] = DodgeFloat(a[i], b[i]);
                      });
        Expect<float>("floats by red", 4, With(DodgeFloatsMono_C4R, alpha),
                      [first, red](const float* a, const float* b, float* to) {
                          for (int i = first; i < first + 3; ++i)
                              to[i] = DodgeFloat(a[red], b[red]);
                      });
    }
    const float nan = std::nanf(""), base[4] = {nan, 0, -1, 1}, blend[4] = {0, 1, 2, 1};
    float dst[4] = {};
    ASSERT_EQ(DodgeFloats_C4R(base, 16, blend, 16, dst, 16, {1, 1}, AlphaAt::kLast), kStatusOk);
    EXPECT_TRUE(std::isnan(dst[0]));
    EXPECT_EQ(dst[1], 1.0f) << "0 by 1";
    EXPECT_EQ(dst[2], 1.0f) << "a negative one by more than 1";
}

TEST(Blend, LaysOneOverTheOther) {
    Expect<std::uint8_t>(
        "bytes", 4, With(OverBytes_A4R), [](const auto* f, const auto* b, auto* to) {
            const int t = std::min(b[0] * (255 - f[0]) / 255, 255);
            for (int i = 1; i < 4; ++i)
                to[i] = static_cast<std::uint8_t>(std::min((f[0] * f[i] + t * b[i]) / 255, 255));
            to[0] = static_cast<std::uint8_t>(std::min(t + f[0], 255));
        });
    Expect<std::uint8_t>(
        "bytes, premultiplied", 4, With(OverBytesPremultiplied_A4R),
        [](const auto* f, const auto* b, auto* to) {
            for (int i = 0; i < 4; ++i)
                to[i] = static_cast<std::uint8_t>(std::min(f[i] + b[i] * (255 - f[0]) / 255, 255));
        });
    for (const AlphaAt alpha : {AlphaAt::kFirst, AlphaAt::kLast}) {
        const int place = alpha == AlphaAt::kFirst ? 0 : 3;
        Expect<float>("floats", 4, With(OverFloats_C4R, alpha),
                      [place](const float* f, const float* b, float* to) {
                          const float fa = f[place], t = (1.0f - fa) * b[place];
                          for (int i = 0; i < 4; ++i)
                              to[i] = i == place ? t + fa : fa * f[i] + t * b[i];
                      });
        Expect<float>("floats, premultiplied", 4, With(OverFloatsPremultiplied_C4R, alpha),
                      [place](const float* f, const float* b, float* to) {
                          for (int i = 0; i < 4; ++i) to[i] = (1.0f - f[place]) * b[i] + f[i];
                      });
    }
}

}  // namespace
}  // namespace brushworks
