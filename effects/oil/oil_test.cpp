// Oil's steps, put together from the filters themselves, and what its daubs do to a picture.
#include "effects/testing.h"
#include "primitives/mode_filter.h"
#include "processors/canvaskit/fill_border.h"
#include "processors/canvaskit/hsv.h"
#include "processors/canvaskit/median.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kOil = 7;
enum Param : unsigned int { kColorShift, kColor, kBrightness, kBrushSize, kSmoothing, kBlend };

class Oil : public ::testing::Test {
  protected:
    /// Neutral colours and no mix: what is seen are the daubs.
    Oil() {
        UseDefaults(*effect, host);
        for (const Param neutral : {kColorShift, kColor, kBrightness})
            host.values[neutral].value = 0.5f;
        host.values[kBlend].value = 1.0f;
    }

    TestHost host;
    EffectPointer effect{NewEffect(kOil)};
};

/// Sets the colours of a pixel.
void Put(CFrame& frame, int x, int y, unsigned char gray) {
    std::memset(Processors::RowOf<unsigned char>(frame, y) + 4 * x, gray, 3);
}

/// The pixels have the same colours, whatever their alpha.
void ExpectSameColours(const CFrame& a, const CFrame& b) {
    for (int y = 0; y < a.m_nHeight; ++y)
        for (int i = 0; i < 4 * a.m_nWidth; ++i)
            if (i % 4 != 3) {
                ASSERT_EQ(SampleAt(a, y, i), SampleAt(b, y, i)) << "row " << y << ", sample " << i;
            }
}

TEST_F(Oil, SizesFollowTheLinesOfThePicture) {
    struct Case {
        int height;
        float brush, smoothing;
        bool field;
        int radiusX, radiusY, smoothX, smoothY, medians;
    };
    constexpr Case kCases[] = {
        {60, 0.0f, 0.0f, false, 0, 1, 0, 0, 0},
        {60, 0.0f, 0.0f, true, 1, 1, 0, 0, 0},  // radii that a field halves to nothing
        {120, 0.0f, 0.9f, false, 1, 1, 0, 0, 0},
        {120, 0.0f, 0.9f, true, 2, 1, 1, 1, 1},
        {239, 0.4f, 0.0f, false, 3, 3, 0, 0, 0},
        {500, 0.21f, 0.38f, false, 5, 5, 2, 2, 1},
        {501, 0.21f, 0.38f, false, 5, 5, 2, 2, 2},
        {250, 1.0f, 0.5f, true, 10, 5, 3, 1, 1},
        {251, 1.0f, 0.5f, true, 10, 5, 3, 1, 2},
    };
    RenderInfo info{};
    info.dwFlags = kRenderHasFieldMode;
    for (const Param param : {kColorShift, kColor, kBrightness})
        host.values[param].value = 0.3f + 0.1f * static_cast<float>(param);
    for (const Case& c : kCases) {
        SCOPED_TRACE(::testing::Message() << c.height << " lines, brush " << c.brush
                                          << ", smoothing " << c.smoothing << ", " << c.field);
        RandomFrame src(33, c.height, PixelFormatBGRA8, 1), dst(33, c.height, PixelFormatBGRA8, 2),
            expected(33, c.height, PixelFormatBGRA8, 3);
        host.values[kBrushSize].value = c.brush;
        host.values[kSmoothing].value = c.smoothing;
        info.nFieldMode = c.field ? 1 : 3;
        ASSERT_TRUE(Render(*effect, host, src, dst, &info));

        CFrame bordered;
        Canvaskit::CFillBorder().Process(src, bordered, c.radiusX, c.radiusY, nullptr);
        ASSERT_EQ(ModeFilter_8u_C4R(bordered.m_pBuffer, bordered.m_nByteSpan, expected.m_pBuffer,
                                    expected.m_nByteSpan, {33, c.height},
                                    {2 * c.radiusX + 1, 2 * c.radiusY + 1}),
                  kStatusOk);
        ASSERT_TRUE(Canvaskit::CHSV().Process(expected, expected, 0.8f, 0.9f, 1.0f));
        for (int i = 0; i < c.medians; ++i)
            ASSERT_TRUE(Canvaskit::CMedian().Process(expected, c.smoothX, c.smoothY));
        ExpectSameColours(dst, expected);
    }
}

TEST_F(Oil, ASpeckGoesUnderInTheColourAroundIt) {
    RandomFrame src(50, 40, PixelFormatBGRA8, 1), dst(50, 40, PixelFormatBGRA8, 2),
        expected(50, 40, PixelFormatBGRA8, 3);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 50; ++x) {
            Put(src, x, y, x == 21 && y == 13 ? 250 : 90);
            Put(expected, x, y, 90);
        }
    host.values[kBrushSize].value = 1.0f;  // 3 by 3 pixels in a field of so few lines
    RenderInfo field{};
    field.dwFlags = kRenderHasFieldMode;
    field.nFieldMode = 1;
    ASSERT_TRUE(Render(*effect, host, src, dst, &field));
    ExpectSameColours(dst, expected);
}

TEST_F(Oil, BrightnessIsCutAtWhiteAndNotBefore) {
    RandomFrame src(20, 20, PixelFormatBGRA8, 1), dst(20, 20, PixelFormatBGRA8, 2);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x) {
            unsigned char* p = Processors::RowOf<unsigned char>(src, y) + 4 * x;
            p[0] = 200;
            p[1] = p[2] = 100;
        }
    host.values[kBrightness].value = 1.0f;  // half as bright again: 300 and 150
    ASSERT_TRUE(Render(*effect, host, src, dst));
    EXPECT_EQ(SampleAt(dst, 7, 4 * 9), 255);
    EXPECT_EQ(SampleAt(dst, 7, 4 * 9 + 1), 150);
    EXPECT_EQ(SampleAt(dst, 7, 4 * 9 + 2), 150);
}

TEST_F(Oil, BlendMixesWithTheSource) {
    RandomFrame src(40, 120, PixelFormatBGRA32f, 1), painted(40, 120, PixelFormatBGRA32f, 2),
        mixed(40, 120, PixelFormatBGRA32f, 3);
    ASSERT_TRUE(Render(*effect, host, src, painted));
    host.values[kBlend].value = 0.25f;
    ASSERT_TRUE(Render(*effect, host, src, mixed));
    for (int y = 0; y < 120; ++y)
        for (int i = 0; i < 160; ++i)
            ASSERT_NEAR(SampleAt(mixed, y, i),
                        0.75f * SampleAt(src, y, i) + 0.25f * SampleAt(painted, y, i), 1e-5f);
}

}  // namespace
}  // namespace brushworks
