// What Oil's daubs and controls do to a picture.
#include "effects/testing.h"

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
