// What must hold of every posterized picture.
#include <set>

#include "effects/testing.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kPosterize = 10;
enum Param : unsigned int { kColorShift, kColor, kBrightness, kLevels, kDither };

class Posterize : public ::testing::Test {
  protected:
    Posterize() { UseDefaults(*effect, host); }
    void Set(float shift, float color, float brightness, int levels, int dither) {
        host.values[kColorShift].value = shift;
        host.values[kColor].value = color;
        host.values[kBrightness].value = brightness;
        host.values[kLevels].index = levels - 2;
        host.values[kDither].index = dither;
    }

    TestHost host;
    EffectPointer effect{NewEffect(kPosterize)};
};

TEST_F(Posterize, LeavesOnlyTheLevelsAskedForAndEveryAlpha) {
    for (const PixelFormat format : kColorFormats)
        for (int levels = 2; levels <= 9; ++levels)
            for (int dither = 0; dither <= 4; ++dither) {
                SCOPED_TRACE(::testing::Message() << "format " << format << ", " << levels
                                                  << " levels, dither " << dither);
                RandomFrame src(37, 23, format, 1), dst(37, 23, format, 2);
                Set(0.5f, 0.5f, 0.5f, levels, dither);
                ASSERT_TRUE(Render(*effect, host, src, dst));
                const int alpha = Processors::AlphaPlane(src);
                std::set<float> seen;
                for (int y = 0; y < 23; ++y)
                    for (int i = 0; i < 37 * 4; ++i) {
                        if (i % 4 == alpha)
                            ASSERT_EQ(SampleAt(dst, y, i), SampleAt(src, y, i));
                        else
                            seen.insert(SampleAt(dst, y, i));
                    }
                EXPECT_EQ(static_cast<int>(seen.size()), levels);
                EXPECT_EQ(*seen.begin(), 0.0f);
                EXPECT_NEAR(*seen.rbegin(), Processors::IsFloatColor(src) ? 1.0f : 255.0f, 1e-6f);
            }
}

TEST_F(Posterize, OneFlatColourByHand) {
    // Neutral hue and saturation, brightness down a half: (200, 100, 100) has the value 100, hue 0
    // and a saturation that keeps the ratio, so (100, 50, 50), and of three levels 0, 128, 255 the
    // nearest.
    RandomFrame src(4, 4, PixelFormatBGRA8, 1), dst(4, 4, PixelFormatBGRA8, 2);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x) {
            unsigned char* p = Processors::RowOf<unsigned char>(src, y) + 4 * x;
            p[0] = 200;
            p[1] = p[2] = 100;
        }
    Set(0.5f, 0.5f, 0.0f, 3, 0);
    ASSERT_TRUE(Render(*effect, host, src, dst));
    const unsigned char* p = dst.m_pBuffer;
    EXPECT_EQ(p[0], 128);
    EXPECT_EQ(p[1], 0);
    EXPECT_EQ(p[2], 0);
}

TEST_F(Posterize, RefusesAnOptionThatDoesNotExistAndMissingMemory) {
    CountingAllocator lender;
    lender.refuseAfter = 0;
    TestHost lending(&lender);
    UseDefaults(*effect, lending);
    RandomFrame src(9, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2),
        before(9, 6, PixelFormatBGRA8, 2);
    EXPECT_FALSE(Render(*effect, lending, src, dst));
    Set(0.5f, 0.5f, 0.5f, 10, 0);
    EXPECT_FALSE(Render(*effect, host, src, dst));
    EXPECT_TRUE(SamePixels(dst, before));
}

TEST_F(Posterize, OtherLayoutsAreLeftAsTheyAre) {
    for (const PixelFormat format : {PixelFormatMono8, PixelFormatMono32f}) {
        RandomFrame src(9, 6, format, 1), dst(9, 6, format, 2), before(9, 6, format, 2);
        EXPECT_TRUE(Render(*effect, host, src, dst));
        EXPECT_TRUE(SamePixels(dst, before));
    }
    RandomFrame plane(9, 6, PixelFormatMono8, 1), dst(9, 6, PixelFormatARGB8, 2),
        expected(9, 6, PixelFormatARGB8, 2);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 9; ++x)
            Processors::RowOf<unsigned char>(expected, y)[4 * x + 3] =
                Processors::RowOf<unsigned char>(plane, y)[x];
    EXPECT_TRUE(Render(*effect, host, plane, dst));
    EXPECT_TRUE(SamePixels(dst, expected));
}

}  // namespace
}  // namespace brushworks
