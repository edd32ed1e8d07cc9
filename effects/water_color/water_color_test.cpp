// Water Color's steps, put together from the processors themselves.
#include "effects/testing.h"
#include "processors/canvaskit/median.h"
#include "processors/canvaskit/sharpen.h"
#include "processors/color_twist.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kWaterColor = 11;
enum Param : unsigned int { kColorShift, kColor, kBrightness, kContrast, kBrushWidth, kBlend };

/// The colours of both frames are the same, whatever their alpha.
void ExpectSameColours(const CFrame& a, const CFrame& b) {
    for (int y = 0; y < a.m_nHeight; ++y)
        for (int i = 0; i < 4 * a.m_nWidth; ++i)
            if (i % 4 != 3) {
                ASSERT_EQ(SampleAt(a, y, i), SampleAt(b, y, i)) << "row " << y << ", sample " << i;
            }
}

TEST(WaterColor, TheBrushFollowsTheLinesOfThePicture) {
    struct Case {
        int height;
        float brush;
        bool field;
        int radiusX, radiusY, medians;
    };
    constexpr Case kCases[] = {
        {100, 0.0f, false, 0, 0, 0},   // below 240 lines the finest brush only sharpens
        {239, 0.01f, false, 1, 1, 1},  // 239 / 240 times 1.05
        {480, 0.2f, false, 4, 4, 1},  {501, 0.2f, false, 4, 4, 2}, {250, 0.2f, true, 4, 2, 1},
        {251, 0.2f, true, 4, 2, 2},   {120, 0.0f, true, 1, 1, 1},
    };
    const EffectPointer effect(NewEffect(kWaterColor));
    TestHost host;
    UseDefaults(*effect, host);
    host.values[kColorShift].value = 0.8f;
    host.values[kBlend].value = 1.0f;
    RenderInfo info{};
    info.dwFlags = kRenderHasFieldMode;
    for (const Case& c : kCases) {
        SCOPED_TRACE(::testing::Message() << c.height << " lines, brush " << c.brush);
        RandomFrame src(24, c.height, PixelFormatBGRA8, 1), dst(24, c.height, PixelFormatBGRA8, 2),
            expected(24, c.height, PixelFormatBGRA8, 3);
        host.values[kBrushWidth].value = c.brush;
        info.nFieldMode = c.field ? 2 : 3;
        ASSERT_TRUE(Render(*effect, host, src, dst, &info));

        MemoryAllocator allocator(nullptr);
        Processors::CColorTwist().Process(&src, &expected, host.values[kContrast].value,
                                          host.values[kBrightness].value, host.values[kColor].value,
                                          (0.8f - 0.5f) * 0.3f + 0.5f, allocator);
        for (int i = 0; i < c.medians; ++i)
            ASSERT_TRUE(Canvaskit::CMedian().Process(expected, c.radiusX, c.radiusY));
        ASSERT_TRUE(Canvaskit::CSharpen().Process(expected));
        ExpectSameColours(dst, expected);
    }
}

TEST(WaterColor, BlendMixesWithTheSource) {
    const EffectPointer effect(NewEffect(kWaterColor));
    TestHost host;
    UseDefaults(*effect, host);
    RandomFrame src(40, 30, PixelFormatBGRA32f, 1), painted(40, 30, PixelFormatBGRA32f, 2),
        mixed(40, 30, PixelFormatBGRA32f, 3);
    host.values[kBlend].value = 1.0f;
    ASSERT_TRUE(Render(*effect, host, src, painted));
    host.values[kBlend].value = 0.25f;
    ASSERT_TRUE(Render(*effect, host, src, mixed));
    for (int y = 0; y < 30; ++y)
        for (int i = 0; i < 160; ++i)
            ASSERT_NEAR(SampleAt(mixed, y, i),
                        0.75f * SampleAt(src, y, i) + 0.25f * SampleAt(painted, y, i), 1e-5f);
}

}  // namespace
}  // namespace brushworks
