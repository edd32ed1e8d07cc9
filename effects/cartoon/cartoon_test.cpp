// Toonery Plus: the tone curve, the paint and the lines each by values that can be worked out by
// hand, and the whole put together from them.
#include <algorithm>

#include "effects/cartoon/line_layer.h"
#include "effects/cartoon/paint_layer.h"
#include "effects/cartoon/tone_curve.h"
#include "effects/detail_enhancer.h"
#include "effects/testing.h"
#include "processors/mix.h"
#include "processors/rgb_hsv.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kCartoon = 0;

unsigned char* Row(const CFrame& frame, int y) {
    return Processors::RowOf<unsigned char>(frame, y);
}

void Fill(CFrame& frame, int x, int width, const unsigned char (&colour)[3]) {
    for (int y = 0; y < frame.m_nHeight; ++y)
        for (int i = 4 * x; i < 4 * (x + width); ++i)
            if (i % 4 != 3) Row(frame, y)[i] = colour[i % 4];
}

/// Colours are the same; alpha is nobody's matter here.
void ExpectSameColours(const CFrame& a, const CFrame& b) {
    for (int y = 0; y < a.m_nHeight; ++y)
        for (int i = 0; i < 4 * a.m_nWidth; ++i)
            if (i % 4 != 3) {
                ASSERT_EQ(SampleAt(a, y, i), SampleAt(b, y, i)) << "row " << y << ", sample " << i;
            }
}

TEST(CartoonContrast, BlendsAnSWithAGammaAndActsTwice) {
    struct Case {
        float contrast, offset, power;
        unsigned char from, to;
    };
    constexpr Case kCases[] = {
        {0.0f, 0.5f, 5.0f, 37, 37},    // neither S nor gamma
        {0.0f, 1.0f, 2.0f, 200, 95},   // 200 squared / 256 is 156.25, and 156 likewise 95.06
        {0.0f, 0.0f, 4.0f, 16, 215},   // the fourth root: 128, and of that 215.3
        {1.0f, 0.5f, 5.0f, 64, 12},    // (1 - cos(pi / 4)) / 2 is 37.49 of 256, and 37 gives 12.97
        {1.0f, 0.5f, 5.0f, 128, 128},  // the middle of the S stays
        {0.5f, 0.5f, 5.0f, 64, 36},    // between 37.49 and 64, and then between 23.35 and 50
        {1.04f, 1.02f, 5.0f, 255, 255}, {1.04f, 1.02f, 5.0f, 0, 0},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(::testing::Message() << c.contrast << ", " << c.offset << ", " << c.power);
        RandomFrame plane(3, 2, PixelFormatMono8, 1), pixels(3, 2, PixelFormatBGRA8, 2),
            result(3, 2, PixelFormatBGRA8, 3);
        Row(plane, 1)[2] = c.from;
        Fill(pixels, 0, 3, {0, c.from, 255});
        ASSERT_TRUE(Contrast(&plane, &plane, c.contrast, c.offset, c.power));
        ASSERT_TRUE(Contrast(&pixels, &result, c.contrast, c.offset, c.power));
        EXPECT_EQ(Row(plane, 1)[2], c.to);
        EXPECT_EQ(Row(result, 1)[9], c.to);
        EXPECT_EQ(Row(result, 1)[11], Row(pixels, 1)[11]);  // alpha is copied
        EXPECT_FALSE(Contrast(&plane, &result, c.contrast, c.offset, c.power));
        EXPECT_FALSE(Contrast(nullptr, &result, c.contrast, c.offset, c.power));
    }
}

/// Paint that changes nothing but by what a test sets: a brush of three pixels, no layers.
PaintSettings Plain() {
    return {1.0f, 3.0f, 0.0f, 0.5f, 0.5f, 0.0f, 0.0f, 0.5f};
}

TEST(Clasterize, DrawsEachLayerToItsMean) {
    struct Case {
        float layers;
        int count;  ///< of layers; 256 for none
    };
    for (const auto& [layers, count] :
         {Case{0.0f, 2}, {0.25f, 5}, {1.96f, 29}, {1.9601f, 256}, {3.0f, 256}})
        for (const float strength : {1.0f, 0.5f, 0.0f}) {
            SCOPED_TRACE(::testing::Message() << layers << " layers, strength " << strength);
            RandomFrame ramp(256, 4, PixelFormatBGRA8, 1), painted(256, 4, PixelFormatBGRA8, 2);
            for (int x = 0; x < 256; ++x) {
                const auto level = static_cast<unsigned char>(x);
                Fill(ramp, x, 1, {level, level, level});
            }
            PaintSettings set = Plain();
            set.layers = layers;
            set.strength = strength;
            ASSERT_TRUE(Clasterize(ramp, painted, set, false));
            for (int layer = 0; layer < count; ++layer) {
                const int low = layer * 256 / count, high = (layer + 1) * 256 / count;
                const int mean = (low + high - 1) / 2;
                for (int i = low; i < high; ++i)
                    ASSERT_EQ(Row(painted, 2)[4 * i],
                              static_cast<int>(static_cast<float>(i) * (1.0f - strength) +
                                               static_cast<float>(mean) * strength));
            }
        }
}

TEST(Clasterize, AMeanCountsEveryPixel) {
    RandomFrame src(40, 4, PixelFormatBGRA8, 1), painted(40, 4, PixelFormatBGRA8, 2);
    Fill(src, 0, 30, {10, 10, 10});
    Fill(src, 30, 10, {40, 40, 40});
    PaintSettings set = Plain();
    set.layers = 0.0f;  // two; the light one is empty
    ASSERT_TRUE(Clasterize(src, painted, set, false));
    for (int x = 0; x < 40; ++x) ASSERT_EQ(Row(painted, 1)[4 * x], 17);
}

TEST(Clasterize, ShapesTonesBeforeTheLayersAndAfterThem) {
    for (const auto& [layers, power] : {std::pair{0.0f, 2.0f}, {3.0f, 3.0f}}) {
        RandomFrame src(5, 5, PixelFormatBGRA8, 1), painted(5, 5, PixelFormatBGRA8, 2);
        Fill(src, 0, 5, {90, 90, 90});
        PaintSettings set = Plain();
        set.layers = layers;
        set.contrast = 0.3f;
        set.brightness = 0.75f;
        ASSERT_TRUE(Clasterize(src, painted, set, false));
        Contrast(&src, &src, 0.3f, 0.25f, power);
        Contrast(&src, &src, 0.3f, 0.25f, 1.5f);
        ExpectSameColours(painted, src);
    }
}

TEST(Clasterize, TurnsTheHueAndScalesTheSaturation) {
    struct Case {
        float shift, color;
        int turn;
        float factor;
    };
    for (const auto& [shift, color, turn, factor] : {Case{0.5f, 0.5f, 0, 1.0f},
                                                     {0.0f, 0.5f, -32, 1.0f},
                                                     {1.0f, 0.0f, 32, 0.25f},
                                                     {0.49f, 0.75f, 0, 2.0f},
                                                     {0.48f, 1.0f, -1, 4.0f}})
        for (const auto& colour : {VideoSample{200, 90, 80, 0}, {30, 40, 220, 0}, {9, 9, 9, 0}}) {
            SCOPED_TRACE(::testing::Message() << shift << ", " << color);
            RandomFrame src(5, 5, PixelFormatBGRA8, 1), painted(5, 5, PixelFormatBGRA8, 2),
                expected(5, 5, PixelFormatBGRA8, 3);
            Fill(src, 0, 5, {colour.b, colour.g, colour.r});
            PaintSettings set = Plain();
            set.shift = shift;
            set.color = color;
            ASSERT_TRUE(Clasterize(src, painted, set, false));
            Processors::CRGBToHSV().Process(&src, &expected);
            const unsigned char* hsv = Row(expected, 0);
            Fill(expected, 0, 5,
                 {static_cast<unsigned char>(hsv[0] + turn),
                  static_cast<unsigned char>(std::min(static_cast<float>(hsv[1]) * factor, 255.0f)),
                  hsv[2]});
            Processors::CHSVToRGB().Process(&expected, &expected);
            ExpectSameColours(painted, expected);
        }
}

TEST(Clasterize, SharpensBySurroundingsThatWeighByTheSquareOfTheirDistance) {
    RandomFrame src(10, 6, PixelFormatBGRA8, 1), painted(10, 6, PixelFormatBGRA8, 2);
    Fill(src, 0, 5, {100, 100, 100});
    Fill(src, 5, 5, {140, 140, 140});
    PaintSettings set = Plain();
    set.sharpen = 0.1f;  // a strength of 1
    ASSERT_TRUE(Clasterize(src, painted, set, false));
    // All 24 weights sum to 9.1, those one column away to 2.4, two columns away to 0.9.
    constexpr int kAcross[10] = {100, 100, 100, 96, 85, 155, 144, 140, 140, 140};
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 10; ++x) ASSERT_EQ(Row(painted, y)[4 * x + 1], kAcross[x]);
}

TEST(Clasterize, TheBrushIsTwiceAsWideAsHighOnAField) {
    // A bar survives a median that reaches less far than it is thick.
    const auto survives = [](int width, int height, bool field) {
        RandomFrame src(60, 60, PixelFormatBGRA8, 1), painted(60, 60, PixelFormatBGRA8, 2);
        CFrame bar;
        bar.Init(&src, 30 - width / 2, 30 - height / 2, width, height, false);
        Fill(src, 0, 60, {50, 50, 50});
        Fill(bar, 0, width, {200, 200, 200});
        PaintSettings set = Plain();
        set.smooth = 0.7f;  // radii at 60 lines: 0.7 * 3 + 1, on fields 0.7 * 6 + 1 and half of it
        EXPECT_TRUE(Clasterize(src, painted, set, field));
        return Row(painted, 30)[4 * 30] == 200;
    };
    EXPECT_TRUE(!survives(3, 60, false) && survives(4, 60, false));
    EXPECT_TRUE(!survives(60, 3, false) && survives(60, 4, false));
    EXPECT_TRUE(!survives(5, 60, true) && survives(6, 60, true));
    EXPECT_TRUE(!survives(60, 2, true) && survives(60, 3, true));
}

TEST(SmoothLine, DrawsWhatIsDarkerThanItsSurroundings) {
    RandomFrame src(41, 50, PixelFormatBGRA8, 1), lines(41, 50, PixelFormatMono8, 2);
    const auto drawn = [&](int bar, float density, float width) {
        Fill(src, 0, 41, {200, 200, 200});
        Fill(src, 20 - bar / 2, bar, {120, 120, 120});
        SmoothLine(&src, &lines, {0.0f, density, width}, false, nullptr);
        EXPECT_GE(Row(lines, 25)[5], 250);  // paper
        return int{Row(lines, 25)[20]};
    };
    // The glow of the negative is 77 of 255, so the dodge gives 120 * 256 / 178, which is 172; the
    // S of the contrast twice makes 193 and 218 of that.
    EXPECT_EQ(drawn(1, 0.0f, 0.0f), 218);
    for (const float width : {0.0f, 1.0f, 3.0f})
        EXPECT_TRUE(drawn(3, 0.0f, width) > drawn(3, 0.1f, width) &&
                    drawn(3, 0.1f, width) > drawn(3, 0.2f, width));
    for (const float density : {0.0f, 0.1f, 0.2f})
        EXPECT_TRUE(drawn(3, density, 0.0f) > drawn(3, density, 1.0f) &&
                    drawn(3, density, 1.0f) > drawn(3, density, 3.0f));
}

TEST(SmoothLine, CleansUpGrain) {
    RandomFrame src(41, 50, PixelFormatBGRA8, 1), lines(41, 50, PixelFormatMono8, 2);
    for (int y = 0; y < 50; ++y)
        for (int i = 0; i < 4 * 41; ++i)
            Row(src, y)[i] = static_cast<unsigned char>(170 + Row(src, y)[i] / 6);
    const auto paper = [&](float cleanUp, bool field) {
        SmoothLine(&src, &lines, {cleanUp, 0.4f, 0.5f}, field, nullptr);
        int white = 0;
        for (int y = 0; y < 50; ++y)
            white += static_cast<int>(std::count_if(Row(lines, y), Row(lines, y) + 41,
                                                    [](int line) { return line >= 250; }));
        return white;
    };
    for (const bool field : {false, true}) {
        EXPECT_GT(paper(0.85f, field), paper(0.0f, field) + 100);
        EXPECT_EQ(paper(0.85f, field), 41 * 50);
    }
}

TEST(SmoothLine, LeavesFlatPaperWhite) {
    RandomFrame src(40, 50, PixelFormatBGRA8, 1), lines(40, 50, PixelFormatMono8, 2);
    CFrame inner;  // the outermost ring, which stays noise, leaves no trace
    inner.Init(&src, 1, 1, 38, 48, false);
    for (const unsigned char paper : {0, 90, 255}) {
        Fill(inner, 0, 38, {paper, paper, paper});
        SmoothLine(&src, &lines, {0.0f, 0.5f, 1.0f}, false, nullptr);
        for (int y = 0; y < 50; ++y)
            for (int x = 0; x < 40; ++x) ASSERT_GE(Row(lines, y)[x], 250);
    }
}

TEST(MergeLines, DarkensOnlyWhatIsLighterThanItsLine) {
    struct Case {
        float mix;
        unsigned char line;
        unsigned char before[3], after[3];
    };
    constexpr Case kCases[] = {
        {0.5f, 98, {100, 100, 100}, {98, 98, 98}},     // (98 * 127 + 100 * 128) / 256
        {0.5f, 99, {100, 100, 100}, {100, 100, 100}},  // its luminance is 99
        {0.0f, 0, {100, 100, 255}, {99, 99, 254}},     // even so a 256th goes
        {1.001f, 50, {255, 0, 200}, {49, 49, 49}},
        {1.0f, 28, {255, 0, 0}, {27, 27, 27}},  // a luminance of 29
        {1.0f, 29, {255, 0, 0}, {255, 0, 0}},
        {1.0f, 75, {0, 0, 255}, {0, 0, 255}},  // 75
    };
    for (const Case& c : kCases) {
        RandomFrame paint(9, 3, PixelFormatBGRA8, 1), before(9, 3, PixelFormatBGRA8, 1),
            lines(9, 3, PixelFormatMono8, 2);
        Fill(paint, 0, 9, c.before);
        std::memset(Row(lines, 1), c.line, 9);
        MergeLines(&paint, &lines, c.mix);
        for (int x = 0; x < 9; ++x) {
            for (int i = 0; i < 3; ++i)
                ASSERT_EQ(Row(paint, 1)[4 * x + i], c.after[i]) << int{c.line};
            ASSERT_EQ(Row(paint, 1)[4 * x + 3], Row(before, 1)[4 * x + 3]);
        }
    }
}

class Cartoon : public ::testing::Test {
  protected:
    Cartoon() { UseDefaults(*effect, host); }
    TestHost host;
    EffectPointer effect{NewEffect(kCartoon)};
};

TEST_F(Cartoon, PaintsDrawsAndShadesByItsControls) {
    struct Case {
        float slider, brightness;
    };
    for (const auto& [slider, brightness] : {Case{0.2f, 0.41f}, {0.8f, 0.8f}})
        for (const bool field : {false, true}) {
            SCOPED_TRACE(::testing::Message() << "brightness " << slider << ", field " << field);
            const float values[17] = {0,    0.6f,  0.3f,  0.9f, 0.7f,   0,     0,    0.5f, 0.8f,
                                      0.2f, 0.35f, 0.45f, 0.6f, slider, 0.55f, 0.6f, 0};
            for (unsigned int i = 0; i < 17; ++i) host.values[i].value = values[i];
            RenderInfo info{};
            info.dwFlags = kRenderHasFieldMode;
            info.nFieldMode = field ? 2 : 3;
            RandomFrame src(50, 120, PixelFormatBGRA8, 1), dst(50, 120, PixelFormatBGRA8, 2),
                expected(50, 120, PixelFormatBGRA8, 3), lines(50, 120, PixelFormatMono8, 4);
            ASSERT_TRUE(Render(*effect, host, src, dst, &info));

            MemoryAllocator allocator;
            ASSERT_TRUE(Clasterize(
                src, expected,
                {1.0f, 0.5f * 0.5f * 3.0f, 0.8f, 0.45f, 0.6f, 0.2f, 0.55f, brightness}, field));
            SmoothLine(&src, &lines, {0.3f * 0.85f, 0.6f, 0.9f}, field, &allocator);
            MergeLines(&expected, &lines, 0.7f);
            DetailEnchancer(&expected, &expected, 2 * 0.35f, 0.35f + 0.01f, false, &allocator);
            Processors::CMix().Process(&src, &expected, &expected, 1.0f - 0.6f, 0.6f);
            ExpectSameColours(dst, expected);
        }
}

TEST_F(Cartoon, WritesNothingToTheSourceButItsFirstAlpha) {
    for (const PixelFormat format : kColorFormats) {
        RandomFrame src(21, 17, format, 1), expected(21, 17, format, 1), dst(21, 17, format, 2);
        ASSERT_TRUE(Render(*effect, host, src, dst));
        if (format == PixelFormatBGRA8) Row(expected, 0)[3] = 127;
        EXPECT_TRUE(SamePixels(src, expected));
        const int alpha = Processors::AlphaPlane(src);
        EXPECT_EQ(SampleAt(dst, 0, alpha), SampleAt(expected, 0, alpha));
    }
}

}  // namespace
}  // namespace brushworks
