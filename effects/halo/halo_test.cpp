// Halo: what one bright point becomes.
#include "effects/testing.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kHalo = 3;
enum Param : unsigned int { kColor, kBrightness, kContrast, kHaloWidth, kEdges, kBlend };

constexpr int kSize = 100;

class Halo : public ::testing::Test {
  protected:
    Halo() {
        for (const unsigned int neutral : {kColor, kBrightness, kContrast})
            host.values[neutral].value = 0.5f;
        src.m_pfPixelFormat = PixelFormatBGRA8;
        for (int y = 0; y < kSize; ++y) std::memset(Processors::RowOf<char>(src, y), 0, 4 * kSize);
        std::memset(Processors::RowOf<char>(src, 50) + 4 * 50, 255, 4);
    }

    void Render(float halo, float edges, float blend, bool field = false) {
        host.values[kHaloWidth].value = halo;
        host.values[kEdges].value = edges;
        host.values[kBlend].value = blend;
        RenderInfo info{};
        info.dwFlags = kRenderHasFieldMode;
        info.nFieldMode = field ? 2 : 3;
        ASSERT_TRUE(testing::Render(*effect, host, src, dst, &info));
    }

    /// Pixels of the row and the column through the point that hold any light.
    int LitAcross() const {
        int lit = 0;
        for (int x = 0; x < kSize; ++x) lit += SampleAt(dst, 50, 4 * x) > 0.0f;
        return lit;
    }
    int LitDown() const {
        int lit = 0;
        for (int y = 0; y < kSize; ++y) lit += SampleAt(dst, y, 4 * 50) > 0.0f;
        return lit;
    }

    TestHost host;
    EffectPointer effect{NewEffect(kHalo)};
    RandomFrame src{kSize, kSize, PixelFormatBGRA8, 1}, dst{kSize, kSize, PixelFormatBGRA8, 2};
};

TEST_F(Halo, APointBecomesAnOddDiscWithASoftRim) {
    Render(1.0f, 0.0f, 1.0f);  // a tenth of 100 lines, plus one; the rim adds a pixel on each side
    EXPECT_EQ(LitAcross(), 11 + 2);
    EXPECT_EQ(LitDown(), 11 + 2);
    EXPECT_NEAR(SampleAt(dst, 50, 4 * 50), 255, 2);
    Render(0.59f, 0.0f, 1.0f);  // 5.9, even: 4, plus one
    EXPECT_EQ(LitAcross(), 5 + 2);
    Render(0.0f, 0.0f, 1.0f);  // one pixel, softened
    EXPECT_EQ(LitAcross(), 3);
    EXPECT_NEAR(SampleAt(dst, 50, 4 * 50), 255 * 10 / 18, 2);
    EXPECT_NEAR(SampleAt(dst, 49, 4 * 49), 255 / 18, 2);
}

TEST_F(Halo, OnAFieldTheDiscIsTwiceAsWideAsHigh) {
    Render(1.0f, 0.0f, 1.0f, true);
    EXPECT_EQ(LitAcross(), 21 + 2);
    EXPECT_EQ(LitDown(), 10 + 2);
}

TEST_F(Halo, EdgesMarkTheRimAndEmptyTheMiddle) {
    Render(1.0f, 1.0f, 1.0f);
    EXPECT_GT(LitAcross(), 11);
    EXPECT_NEAR(SampleAt(dst, 50, 4 * 50), 255, 2);     // flat: eight less seven
    EXPECT_GT(SampleAt(dst, 50, 4 * (50 + 7)), 30.0f);  // just outside: neighbours alone
}

TEST_F(Halo, BlendOfNothingIsTheSource) {
    Randomize(src, 5);
    Render(0.5f, 0.5f, 0.0f);
    for (int y = 0; y < kSize; ++y)
        for (int i = 0; i < 4 * kSize; ++i)
            ASSERT_NEAR(SampleAt(dst, y, i), SampleAt(src, y, i), 1.0f);
}

}  // namespace
}  // namespace brushworks
