// The modes of CBlend: every pair of bytes against the formulas that are published for them, and
// the laws of the one that looks at whole colours.
#include "gpu/processors/blend.h"

#include <algorithm>
#include <cmath>

#include "drawing.h"
#include "processors/dodge_blend.h"

namespace brushworks::GPUProcessors {
namespace {

using namespace brushworks::testing;
using host::gl::alike;

class GPUBlendTest : public DrawingTest {
  protected:
    Picture Blend(const Picture& base, const Picture& layer, CBlend::BlendTypeEnum type,
                  bool mono) {
        Texture first(base), second(layer), target(base.width, base.height, base.format);
        EXPECT_TRUE(CBlend(&helper).Process(first, second, target, type, mono));
        return target.Read();
    }
};

/// All pairs of bytes in each colour, differently paired in each; x gives the base.
Picture AllBases(PixelFormat format) {
    return Paint(256, 256, format, [](int x, int y) {
        return Color{x / 255.0f, (255 - x) / 255.0f, (x * 7 % 256) / 255.0f, y / 255.0f};
    });
}
Picture AllLayers(PixelFormat format) {
    return Paint(256, 256, format, [](int x, int y) {
        return Color{y / 255.0f, y / 255.0f, (y * 3 % 256) / 255.0f, (x ^ y) / 255.0f};
    });
}

double Burn(double a, double b) {
    return b == 0 ? 0 : std::max(0.0, 1 - (1 - a) / b);
}
double Dodge(double a, double b) {
    return b == 1 ? 1 : std::min(1.0, a / (1 - b));
}

TEST_F(GPUBlendTest, EveryPairOfBytesFollowsThePublishedFormula) {
    const struct {
        CBlend::BlendTypeEnum type;
        double (*formula)(double a, double b);
    } kModes[] = {
        {CBlend::kPop,
         [](double a, double b) { return b < 0.5 ? Burn(a, 2 * b) : Dodge(a, 2 * b - 1); }},
        {CBlend::kScreen, [](double a, double b) { return a + b - a * b; }},
        {CBlend::kMultiply, [](double a, double b) { return a * b; }},
        {CBlend::kLighten, [](double a, double b) { return std::max(a, b); }},
        {CBlend::kDarken, [](double a, double b) { return std::min(a, b); }},
        {CBlend::kDodge, Dodge},
        {CBlend::kColorBurn, Burn},
        {CBlend::kNegation, [](double a, double b) { return 1 - std::abs(1 - a - b); }},
    };
    Picture base = AllBases(PixelFormatBGRA8), layer = AllLayers(PixelFormatARGB8);
    for (const auto& mode : kModes) {
        SCOPED_TRACE(mode.type);
        Picture expected = Paint(256, 256, base.format, [&](int x, int y) {
            Color color = Pixel(base, x, y);
            const Color over = Pixel(layer, x, y);
            for (int i = 0; i < 3; ++i)
                color[i] = static_cast<float>(mode.formula(color[i], over[i]));
            return color;
        });
        EXPECT_TRUE(
            alike(Blend(base, layer, mode.type, false).frame(), expected.frame(), {.largest = 1}));
    }
}

TEST_F(GPUBlendTest, DodgesAsOnFrames) {
    for (PixelFormat format : {PixelFormatBGRA8, PixelFormatARGB8, PixelFormatBGRA32f})
        for (bool mono : {false, true}) {
            Picture base = AllBases(format), layer = AllLayers(format);
            Picture expected = base;  // whose alpha the blend on frames leaves alone
            FrameOver below(base), over(layer), result(expected);
            ASSERT_TRUE(Processors::CDodgeBlend().Process(&below, &over, &result, mono));
            EXPECT_TRUE(alike(Blend(base, layer, CBlend::kDodge, mono).frame(), expected.frame(),
                              {.largest = IsFloat(format) ? 0.02 : 1}));
        }
}

TEST_F(GPUBlendTest, HueKeepsTheBasesLuminosityAndTakesTheLayersOrderOfColours) {
    std::uint32_t state = 1;
    const auto random = [&] {
        state = state * 1664525 + 1013904223;
        return static_cast<float>(state >> 8) / (1 << 24);
    };
    const auto paint = [&](int, int) { return Color{random(), random(), random(), random()}; };
    const auto luminosity = [](const Color& c) {
        return 0.3f * c[0] + 0.59f * c[1] + 0.11f * c[2];
    };
    Picture base = Paint(64, 64, PixelFormatBGRA32f, paint);
    Picture layer = Paint(64, 64, PixelFormatBGRA32f, paint);
    Picture blended = Blend(base, layer, CBlend::kHue, false);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) {
            const Color a = Pixel(base, x, y), b = Pixel(layer, x, y), c = Pixel(blended, x, y);
            ASSERT_NEAR(luminosity(c), luminosity(a), 1e-4);
            ASSERT_EQ(c[3], a[3]);
            const auto [low, high] = std::minmax_element(c.begin(), c.begin() + 3);
            ASSERT_TRUE(*low >= -1e-5f && *high <= 1 + 1e-5f);
            // The place of each sample between least and greatest is the hue; saturation is the
            // base's unless that would leave the range.
            const auto [least, greatest] = std::minmax_element(b.begin(), b.begin() + 3);
            for (int i = 0; i < 3; ++i)
                ASSERT_NEAR((c[i] - *low) * (*greatest - *least), (b[i] - *least) * (*high - *low),
                            1e-4);
            const auto [dark, bright] = std::minmax_element(a.begin(), a.begin() + 3);
            if (*low > 1e-4f && *high < 1 - 1e-4f) {
                ASSERT_NEAR(*high - *low, *bright - *dark, 1e-4);
            }
        }
    EXPECT_TRUE(
        alike(Blend(base, base, CBlend::kHue, false).frame(), base.frame(), {.largest = 0.05}));
}

TEST_F(GPUBlendTest, ChecksFormatsAndPassesOverUnknownTypes) {
    Texture base(4, 3, PixelFormatBGRA8), other(5, 3, PixelFormatBGRA8),
        target(4, 3, PixelFormatBGRA8);
    EXPECT_TRUE(CBlend(&helper).Process(base, other, target, CBlend::kScreen, false));
    EXPECT_FALSE(CBlend(&helper).Process(base, other, other, CBlend::kScreen, false));
    const auto unknown = static_cast<CBlend::BlendTypeEnum>(9);
    const Picture before = target.Read();
    EXPECT_TRUE(CBlend(&helper).Process(base, other, target, unknown, false));
    EXPECT_EQ(target.Read().bytes, before.bytes);
}

}  // namespace
}  // namespace brushworks::GPUProcessors
