// What must hold of every posterized picture.
#include <cmath>
#include <set>

#include "effects/testing.h"
#include "library/statistics.h"
#include "processors/channel_reverse.h"

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

TEST_F(Posterize, TheOrderOfChannelsMakesNoDifference) {
    for (const auto& [alphaLast, alphaFirst] : {std::pair{PixelFormatBGRA8, PixelFormatARGB8},
                                                {PixelFormatBGRA32f, PixelFormatARGB32f}}) {
        RandomFrame src(40, 21, alphaLast, 3), dst(40, 21, alphaLast, 4);
        RandomFrame reversed(40, 21, alphaFirst, 5), result(40, 21, alphaFirst, 6);
        Processors::CChannelReverse().Process(&src, &reversed);
        Set(0.3f, 0.8f, 0.6f, 5, 1);
        ASSERT_TRUE(Render(*effect, host, src, dst));
        ASSERT_TRUE(Render(*effect, host, reversed, result));
        Processors::CChannelReverse().Process(&result, &reversed);
        reversed.m_pfPixelFormat = alphaLast;
        EXPECT_TRUE(SamePixels(dst, reversed));
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

TEST_F(Posterize, WorksOnTheOverlapAlone) {
    for (const PixelFormat format : kColorFormats) {
        SCOPED_TRACE(format);
        RandomFrame large(30, 20, format, 7), dst(12, 25, format, 8), before(12, 25, format, 8),
            exact(12, 20, format, 9);
        CFrame cut;
        cut.Init(&large, 0, 0, 12, 20, false);
        Set(0.4f, 0.9f, 0.5f, 4, 2);
        ASSERT_TRUE(Render(*effect, host, large, dst));
        ASSERT_TRUE(Render(*effect, host, cut, exact));
        CFrame top, below, untouched;
        top.Init(&dst, 0, 0, 12, 20, false);
        EXPECT_TRUE(SamePixels(top, exact));
        below.Init(&dst, 0, 20, 12, 5, false);
        untouched.Init(&before, 0, 20, 12, 5, false);
        EXPECT_TRUE(SamePixels(below, untouched));
    }
}

TEST_F(Posterize, ANegativeStrideIsTheSameMemory) {
    RandomFrame src(9, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2),
        expected(9, 6, PixelFormatBGRA8, 3);
    ASSERT_TRUE(Render(*effect, host, src, expected));
    FrameParams from = src.GetFrameParams(), to = dst.GetFrameParams();
    for (FrameParams* params : {&from, &to}) {
        params->pBuffer += 5 * params->nByteSpan;
        params->nByteSpan = -params->nByteSpan;
    }
    ASSERT_TRUE(effect->Render(&host, &from, nullptr, &to, nullptr));
    EXPECT_TRUE(SamePixels(dst, expected));
}

TEST_F(Posterize, RefusesWhatItCannotRender) {
    RandomFrame src(9, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2),
        before(9, 6, PixelFormatBGRA8, 2);
    const FrameParams good = src.GetFrameParams();
    auto refused = [&](auto spoil) {
        FrameParams from = good, to = dst.GetFrameParams();
        spoil(from, to);
        return !effect->Render(&host, &from, nullptr, &to, nullptr) && SamePixels(dst, before);
    };
    EXPECT_TRUE(refused([](FrameParams& from, FrameParams&) { from.pBuffer = nullptr; }));
    EXPECT_TRUE(refused([](FrameParams& from, FrameParams&) { from.nWidth = 0; }));
    EXPECT_TRUE(refused([](FrameParams&, FrameParams& to) { to.nHeight = -3; }));
    EXPECT_TRUE(refused([](FrameParams& from, FrameParams&) { from.nByteSpan = 35; }));
    EXPECT_TRUE(refused([](FrameParams& from, FrameParams&) { from.nByteSpan = INT32_MIN; }));
    EXPECT_TRUE(refused([](FrameParams& from, FrameParams&) { from.nDepth = 1; }));
    EXPECT_TRUE(refused([](FrameParams&, FrameParams& to) { to.nDepth = 16; }));
    EXPECT_TRUE(
        refused([](FrameParams& from, FrameParams&) { from.pfPixelFormat = PixelFormatBGRA32f; }));
    FrameParams from = good, to = dst.GetFrameParams();
    EXPECT_FALSE(effect->Render(nullptr, &from, nullptr, &to, nullptr));
    EXPECT_FALSE(effect->Render(&host, nullptr, nullptr, &to, nullptr));
    EXPECT_FALSE(effect->Render(&host, &from, nullptr, nullptr, nullptr));
    host.values[kLevels].index = 8;  // no such option
    EXPECT_FALSE(effect->Render(&host, &from, nullptr, &to, nullptr));
}

TEST_F(Posterize, WildValuesAreHarmless) {
    RandomFrame src(9, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2);
    RandomFrame floats(9, 6, PixelFormatARGB32f, 3), result(9, 6, PixelFormatARGB32f, 4);
    Processors::Samples<float>(floats)[5] = NAN;
    Processors::Samples<float>(floats)[6] = -INFINITY;
    Processors::Samples<float>(floats)[7] = 1e30f;
    for (const float wild : {-1e30f, 1e30f, NAN, INFINITY}) {
        Set(wild, wild, wild, 3, 1);
        EXPECT_TRUE(Render(*effect, host, src, dst));
        EXPECT_TRUE(Render(*effect, host, floats, result));
    }
    for (const int index : {-1, INT32_MIN, INT32_MAX}) {
        host.values[kLevels].index = index;
        EXPECT_FALSE(Render(*effect, host, src, dst));
    }
}

TEST_F(Posterize, OtherLayoutsAreLeftAsTheyAre) {
    for (const PixelFormat format : {PixelFormatMono8, PixelFormatMono32f}) {
        RandomFrame src(9, 6, format, 1), dst(9, 6, format, 2), before(9, 6, format, 2);
        EXPECT_TRUE(Render(*effect, host, src, dst));
        EXPECT_TRUE(SamePixels(dst, before));
    }
}

TEST_F(Posterize, MemoryGoesBackAndARefusalFails) {
    CountingAllocator lender;
    TestHost lending(&lender);
    UseDefaults(*effect, lending);
    for (const PixelFormat format : kColorFormats) {
        RandomFrame src(9, 6, format, 1), dst(9, 6, format, 2), plain(9, 6, format, 3);
        ASSERT_TRUE(Render(*effect, lending, src, dst));
        ASSERT_TRUE(Render(*effect, host, src, plain));
        EXPECT_TRUE(SamePixels(dst, plain));
        EXPECT_EQ(lender.out, 0);
    }
    EXPECT_GT(lender.lent, 0);
    lender.refuseAfter = 0;
    RandomFrame src(9, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2),
        before(9, 6, PixelFormatBGRA8, 2);
    EXPECT_FALSE(Render(*effect, lending, src, dst));
    EXPECT_TRUE(SamePixels(dst, before));
    EXPECT_EQ(lender.references, 1);
}

class CountingStatistics final : public IUsageStatistics {
  public:
    CountingStatistics() { SetStatistics(this); }
    ~CountingStatistics() override { SetStatistics(nullptr); }
    void SetEffects(const char* const*, unsigned int) override {}
    void ReportRender(const char* effect, const FrameParams*) override {
        reports.push_back(effect);
    }
    std::vector<std::string> reports;
};

TEST_F(Posterize, StatisticsHearOfWholeRendersAlone) {
    CountingStatistics statistics;
    RandomFrame src(9, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2);
    ASSERT_TRUE(Render(*effect, host, src, dst));
    EXPECT_EQ(statistics.reports, std::vector<std::string>{"Posterize"});
    host.values[kLevels].index = -1;
    ASSERT_FALSE(Render(*effect, host, src, dst));
    EXPECT_EQ(statistics.reports.size(), 1u);
}

}  // namespace
}  // namespace brushworks
