// Sums, mixtures, compositions and shades of frames.
#include <algorithm>
#include <cmath>
#include <limits>

#include "frames/samples.h"
#include "processors/add.h"
#include "processors/alpha_blend.h"
#include "processors/alpha_fade.h"
#include "processors/alpha_premul.h"
#include "processors/dodge_blend.h"
#include "processors/mix.h"
#include "processors/mono_chrome.h"
#include "processors/reference.h"

namespace brushworks {
namespace {

using namespace Processors;
using testing::ColourAt;
using testing::ExpectColours;
using testing::HasFloats;
using testing::kAllFormats;
using testing::kColorFormats;
using testing::RandomFrame;
using testing::Rgba;
using testing::SamePixels;
using testing::SampleAt;
using testing::SamplesPerPixel;

/// Applies a formula to the samples of two colours, one by one.
template <class Formula>
Rgba Each(Rgba a, Rgba b, Formula formula) {
    return {formula(a.r, b.r), formula(a.g, b.g), formula(a.b, b.b), formula(a.a, b.a)};
}

/// The quotient of integers, as floats.
float Quotient(float dividend, int divisor) {
    return static_cast<float>(static_cast<int>(dividend) / divisor);
}

float MixedByte(float a, float b, int wa, int wb) {
    return std::min(Quotient(a * static_cast<float>(wa) + b * static_cast<float>(wb), 255), 255.0f);
}

TEST(Mix, WeighsEverySampleAndCutsAtTheTop) {
    const struct {
        float wa, wb;
        int byteA, byteB;
    } cases[] = {{0.25f, 0.75f, 64, 191},
                 {0.5f, 0.5f, 128, 128},
                 {0.6f, 0.6f, 153, 153},
                 {-3, 7, 0, 255},
                 {std::nanf(""), 1, 0, 255}};
    for (const auto& c : cases)
        for (const PixelFormat format : kColorFormats)
            ExpectColours(
                format,
                [&c](CFrame& a, CFrame& b, CFrame& dst) {
                    return CMix().Process(&a, &b, &dst, c.wa, c.wb);
                },
                [&c, format](Rgba a, Rgba b, Rgba) {
                    return Each(a, b, [&](float p, float q) {
                        if (!HasFloats(format)) return MixedByte(p, q, c.byteA, c.byteB);
                        const float wa = c.wa > 0 ? std::min(c.wa, 1.0f) : 0.0f;
                        const float wb = std::min(c.wb, 1.0f), sum = wa * p + wb * q;
                        return wa + wb > 1 ? std::min(sum, 1.0f) : sum;
                    });
                });
    const float infinity = std::numeric_limits<float>::infinity();
    for (const PixelFormat format : kAllFormats) {
        SCOPED_TRACE(format);
        RandomFrame a(9, 5, format, 1), b(9, 5, format, 2), dst(9, 5, format, 3);
        ASSERT_TRUE(CMix().Process(&a, &b, &dst, infinity, 0));
        EXPECT_TRUE(SamePixels(dst, a)) << "all of one";
        ASSERT_TRUE(CMix().Process(&a, &b, &b, 0, 1));
        ASSERT_TRUE(CMix().Process(&a, &b, &dst, 0, 1));
        EXPECT_TRUE(SamePixels(dst, b)) << "all of the other";
    }
    // Below 0 nothing cuts, and at the top only weights of more than 1 together do.
    RandomFrame wild(1, 1, PixelFormatMono32f, 1), dst(1, 1, PixelFormatMono32f, 2);
    *Samples<float>(wild) = 4;
    ASSERT_TRUE(CMix().Process(&wild, &wild, &dst, 0.5f, 0.5f));
    EXPECT_EQ(SampleAt(dst, 0, 0), 4.0f);
    ASSERT_TRUE(CMix().Process(&wild, &wild, &dst, 0.6f, 0.6f));
    EXPECT_EQ(SampleAt(dst, 0, 0), 1.0f);
    *Samples<float>(wild) = -4;
    ASSERT_TRUE(CMix().Process(&wild, &wild, &dst, 1, 1));
    EXPECT_EQ(SampleAt(dst, 0, 0), -8.0f);
    wild.m_pfPixelFormat = static_cast<PixelFormat>(2);
    EXPECT_FALSE(CMix().Process(&wild, &wild, &dst, 1, 1));
}

TEST(Add, LeavesTheSumInTheSecondFrame) {
    for (const PixelFormat format : kAllFormats)
        for (const auto& [wa, wb] : {std::pair{128, 128}, {128, 129}, {300, -5}, {200, 100}}) {
            SCOPED_TRACE(::testing::Message() << format << ", " << wa << " and " << wb);
            RandomFrame a(9, 5, format, 1), b(7, 6, format, 2);
            RandomFrame oldA(9, 5, format, 1), oldB(7, 6, format, 2);
            ASSERT_TRUE(CAdd().Process(&a, &b, wa, wb));
            const int n = SamplesPerPixel(a);
            const bool halves = wa == 128 && wb == 128 && n == 4;
            const int cutA = std::clamp(wa, 0, 255), cutB = std::clamp(wb, 0, 255);
            const auto scaled = [&](float sample, int weight) {
                if (HasFloats(format)) return sample * (static_cast<float>(weight) * kByteToFloat);
                return Quotient(sample * static_cast<float>(weight), 255);
            };
            for (int y = 0; y < 6; ++y)
                for (int i = 0; i < 7 * n; ++i) {
                    if (y == 5) {
                        ASSERT_EQ(SampleAt(b, y, i), SampleAt(oldB, y, i));
                        continue;
                    }
                    const float p = SampleAt(oldA, y, i), q = SampleAt(oldB, y, i);
                    if (halves) {
                        const float half = (p + q) * 0.5f;
                        ASSERT_EQ(SampleAt(b, y, i), HasFloats(format) ? half : std::rint(half));
                        ASSERT_EQ(SampleAt(a, y, i), p) << "scaled for nothing";
                        continue;
                    }
                    const float sum = scaled(p, cutA) + scaled(q, cutB);
                    ASSERT_EQ(SampleAt(b, y, i), HasFloats(format) ? sum : std::min(sum, 255.0f));
                    ASSERT_EQ(SampleAt(a, y, i), scaled(p, cutA));
                }
        }
    RandomFrame other(2, 2, PixelFormatBGRA8, 1);
    other.m_pfPixelFormat = static_cast<PixelFormat>(5);
    EXPECT_FALSE(CAdd().Process(&other, &other, 1, 1));
}

float Dodged(float base, float blend, bool floats) {
    if (floats) return blend == 1 ? 1.0f : std::min(base / (1 - blend), 1.0f);
    return blend == 255 ? 255.0f
                        : std::min(Quotient(base * 256, 255 - static_cast<int>(blend)), 255.0f);
}

TEST(DodgeBlend, DodgesColoursOrRedAlone) {
    for (const PixelFormat format : kColorFormats)
        for (const bool mono : {false, true})
            ExpectColours(
                format,
                [mono](CFrame& a, CFrame& b, CFrame& dst) {
                    return CDodgeBlend().Process(&a, &b, &dst, mono);
                },
                [format, mono](Rgba a, Rgba b, Rgba old) {
                    Rgba p = Each(a, b, [format](float base, float blend) {
                        return Dodged(base, blend, HasFloats(format));
                    });
                    if (mono) p.g = p.b = p.r;
                    p.a = old.a;
                    return p;
                });
    RandomFrame base(5, 4, PixelFormatMono8, 1), blend(5, 4, PixelFormatMono8, 2),
        dst(5, 4, PixelFormatMono8, 3);
    ASSERT_TRUE(CDodgeBlend().Process(&base, &blend, &dst, true));
    for (int x = 0; x < 5; ++x)
        ASSERT_EQ(SampleAt(dst, 3, x), Dodged(SampleAt(base, 3, x), SampleAt(blend, 3, x), false));
    *base.m_pBuffer = 128;
    *blend.m_pBuffer = 0;
    ASSERT_TRUE(CDodgeBlend().Process(&base, &blend, &dst, false));
    EXPECT_EQ(*dst.m_pBuffer, 128);
    *blend.m_pBuffer = 254;
    ASSERT_TRUE(CDodgeBlend().Process(&base, &blend, &dst, false));
    EXPECT_EQ(*dst.m_pBuffer, 255);

    RandomFrame floats(5, 4, PixelFormatMono32f, 1);
    CFrame none;
    EXPECT_FALSE(CDodgeBlend().Process(&floats, &floats, &floats, false));
    EXPECT_FALSE(CDodgeBlend().Process(&base, &none, &dst, false));
    EXPECT_FALSE(CDodgeBlend().Process(&base, &blend, nullptr, false));
}

/// The composition of bytes with alpha last, which rounds each product by itself.
Rgba OverWithAlphaLast(Rgba f, Rgba b) {
    const auto product = [](float p, float q) { return Quotient(p * q, 255); };
    const float t = product(b.a, 255 - f.a);
    const auto sum = [&](float p, float q) {
        return std::min(product(f.a, p) + product(t, q), 255.0f);
    };
    return {sum(f.r, b.r), sum(f.g, b.g), sum(f.b, b.b), std::min(f.a + t, 255.0f)};
}

TEST(AlphaBlend, LaysForegroundOverBackground) {
    for (const PixelFormat format : kColorFormats) {
        const bool floats = HasFloats(format);
        const auto process = [](bool premultiplied) {
            return [premultiplied](CFrame& a, CFrame& b, CFrame& dst) {
                return CAlphaBlend().Process(&a, &b, &dst, premultiplied);
            };
        };
        ExpectColours(format, process(false), [format, floats](Rgba f, Rgba b, Rgba) {
            if (format == PixelFormatBGRA8) return OverWithAlphaLast(f, b);
            const float t = floats ? (1 - f.a) * b.a : Quotient(b.a * (255 - f.a), 255);
            Rgba p = Each(f, b, [&](float x, float y) {
                const float sum = f.a * x + t * y;
                return floats ? sum : std::min(Quotient(sum, 255), 255.0f);
            });
            p.a = floats ? t + f.a : std::min(t + f.a, 255.0f);
            return p;
        });
        ExpectColours(format, process(true), [floats](Rgba f, Rgba b, Rgba) {
            return Each(f, b, [&](float x, float y) {
                if (floats) return (1 - f.a) * y + x;
                return std::min(x + Quotient(y * (255 - f.a), 255), 255.0f);
            });
        });
    }
    RandomFrame plane(4, 4, PixelFormatMono8, 1);
    EXPECT_FALSE(CAlphaBlend().Process(&plane, &plane, &plane, false));
}

TEST(AlphaBlend, StridesDecide) {
    for (const PixelFormat format : kColorFormats) {
        SCOPED_TRACE(format);
        RandomFrame a(6, 4, format, 1), b(6, 4, format, 2), dst(6, 4, format, 3);
        const FrameParams f = a.GetFrameParams(), g = b.GetFrameParams();
        FrameParams to = dst.GetFrameParams(), upward = f, none = to;
        upward.nByteSpan = -upward.nByteSpan;
        none.nByteSpan = 0;
        EXPECT_FALSE(CAlphaBlend().Process(upward, g, to, true));
        EXPECT_FALSE(CAlphaBlend().Process(f, upward, to, true));
        EXPECT_FALSE(CAlphaBlend().Process(f, g, none, true));
        none = to;
        none.nDepth = 0;
        EXPECT_FALSE(CAlphaBlend().Process(f, g, none, true));

        // The destination alone may run upward, where a loop of our own walks it.
        RandomFrame turned(6, 4, format, 4);
        ASSERT_TRUE(CAlphaBlend().Process(f, g, to, true));
        FrameParams up = turned.GetFrameParams();
        up.pBuffer += 3 * up.nByteSpan;
        up.nByteSpan = -up.nByteSpan;
        const bool served = format != PixelFormatBGRA8;
        ASSERT_EQ(CAlphaBlend().Process(f, g, up, true), served);
        for (int y = 0; served && y < 4; ++y)
            for (int i = 0; i < 24; ++i) ASSERT_EQ(SampleAt(turned, 3 - y, i), SampleAt(dst, y, i));
    }
}

TEST(AlphaPremul, MultipliesColoursAndLeavesAlpha) {
    for (const PixelFormat format : kColorFormats)
        ExpectColours(
            format,
            [](CFrame& a, CFrame& b, CFrame& dst) {
                CFrame part;  // the formula's rectangle is common to three frames
                part.Init(&a, 0, 0, b.m_nWidth, a.m_nHeight, false);
                return CAlphaPremul().Process(part, dst);
            },
            [format](Rgba p, Rgba, Rgba old) {
                const auto times = [&](float c) {
                    return HasFloats(format) ? c * p.a : Quotient(c * p.a, 255);
                };
                const float alpha = format == PixelFormatBGRA8 ? p.a : old.a;
                return Rgba{times(p.r), times(p.g), times(p.b), alpha};
            });
    RandomFrame plane(4, 4, PixelFormatMono32f, 1);
    EXPECT_FALSE(CAlphaPremul().Process(plane, plane));
}

TEST(AlphaFade, ScalesAlphaAndColoursByIt) {
    for (const PixelFormat format : kColorFormats)
        for (const int fade : {77, 2147483647, -4})
            ExpectColours(
                format,
                [fade](CFrame& a, CFrame& b, CFrame& dst) {
                    CFrame part;
                    part.Init(&a, 0, 0, b.m_nWidth, a.m_nHeight, false);
                    return CAlphaFade().Process(&part, &dst, fade);
                },
                [format, fade](Rgba p, Rgba, Rgba) {
                    const auto amount = static_cast<float>(fade);
                    if (HasFloats(format)) {
                        const float t = p.a * amount * kByteToFloat;
                        return Rgba{p.r * t, p.g * t, p.b * t, t};
                    }
                    const float t =
                        std::clamp(std::floor(p.a * std::max(amount, 0.0f) / 256), 0.0f, 255.0f);
                    return Rgba{Quotient(p.r * t, 256), Quotient(p.g * t, 256),
                                Quotient(p.b * t, 256), t};
                });
    // Planes are taken as pixels of four bytes, as many as a row holds.
    RandomFrame plane(11, 3, PixelFormatMono8, 1), faded(11, 3, PixelFormatMono8, 2),
        before(11, 3, PixelFormatMono8, 2);
    ASSERT_TRUE(CAlphaFade().Process(&plane, &faded, 256));
    for (int i = 0; i < 11; ++i) {
        const float alpha = SampleAt(plane, 2, i / 4 * 4 + 3);
        const float expected = i % 4 == 3 ? alpha : Quotient(SampleAt(plane, 2, i) * alpha, 256);
        ASSERT_EQ(SampleAt(faded, 2, i), i < 8 ? expected : SampleAt(before, 2, i));
    }
}

TEST(MonoChrome, TintsLuminanceAndAllButDropsAlpha) {
    for (const PixelFormat format : kColorFormats)
        ExpectColours(
            format,
            [](CFrame& a, CFrame& b, CFrame& dst) {
                CFrame part;
                part.Init(&a, 0, 0, b.m_nWidth, a.m_nHeight, false);
                return CMonoChrome().Process(&part, &dst, 0xFF40A0F0);
            },
            [format](Rgba p, Rgba, Rgba) {
                const bool floats = HasFloats(format);
                float y = 0.298f * p.r + 0.586f * p.g + 0.113f * p.b;
                y = floats ? std::min(y, 1.0f) : y * kByteToFloat;
                const auto tinted = [&](float c) {
                    return floats ? y * c * kByteToFloat : std::floor(c * y);
                };
                return Rgba{tinted(0xF0), tinted(0xA0), tinted(0x40),
                            floats ? y * kByteToFloat : 0.0f};
            });
    RandomFrame white(2, 1, PixelFormatBGRA8, 1), plane(2, 1, PixelFormatMono8, 1);
    std::fill_n(white.m_pBuffer, 8, static_cast<unsigned char>(255));
    ASSERT_TRUE(CMonoChrome().Process(&white, &white, 0xFFFFFF));
    const Rgba p = ColourAt(white, 1, 0);
    EXPECT_EQ(p.r, 254) << "the weights add up to 0.997";
    EXPECT_EQ(p.a, 0);
    EXPECT_FALSE(CMonoChrome().Process(&plane, &plane, 0));
}

}  // namespace
}  // namespace brushworks
