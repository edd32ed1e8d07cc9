// Paper Collage: where the cuts lie, the sheets' colours, and the sheets against their plain
// laying, step by step on planes with a wide margin.
#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <vector>

#include "effects/paper_collage/cut.h"
#include "effects/paper_collage/levels.h"
#include "effects/testing.h"
#include "primitives/filter_fixed.h"
#include "processors/alpha_blend.h"
#include "processors/blur.h"
#include "processors/copy.h"
#include "processors/copy_plane.h"
#include "processors/fill_border.h"
#include "processors/mono_chrome.h"
#include "processors/set_color.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kPaperCollage = 8;
enum Param : unsigned int {
    kRounding,
    kLayers,
    kBalance,
    kForeground,
    kBackground,
    kBlendColors,
    kContrast,
    kDistance,
    kAngle,
    kShadowColor,
    kShadowStrength,
};

// Cuts.

struct Cuts {
    unsigned char table[256], values[kMostLevels];
    Cuts(float balance, int levels) {
        CreateGammaTable(balance, levels, false, 0.5f, table, values);
    }
};

TEST(PaperCollageCuts, LieWhereTheStaircaseAndBalancePutThem) {
    const Cuts two(0.5f, 2);
    EXPECT_EQ(two.table[126], 0);
    EXPECT_EQ(two.table[127], 255);

    const Cuts five(0.5f, 5);
    EXPECT_THAT(five.values, ::testing::ElementsAre(0, 63, 127, 191, 255, ::testing::_,
                                                    ::testing::_, ::testing::_));
    EXPECT_EQ(five.table[50], 0);
    EXPECT_EQ(five.table[51], 63);
    EXPECT_EQ(five.table[101], 63);
    EXPECT_EQ(five.table[102], 127);
    EXPECT_EQ(five.table[151], 127);  // place 255 - 127 * 104 / 128 = 152
    EXPECT_EQ(five.table[152], 191);  // place 153

    const Cuts dark(0.81f, 5);  // mid gray at 198
    EXPECT_EQ(dark.table[79], 0);
    EXPECT_EQ(dark.table[80], 63);  // 127 * 80 / 198 = 51
    EXPECT_EQ(dark.table[198], 127);

    // Seven steps of a float's width end at 254; the last one goes on.
    EXPECT_EQ(Cuts(0.0f, 7).table[253], 255);
}

TEST(PaperCollageCuts, EveryBalanceUsesEveryLevelInOrder) {
    for (int levels = 2; levels <= kMostLevels; ++levels)
        for (int balance = 0; balance <= 100; ++balance) {
            const Cuts cuts(static_cast<float>(balance) / 100.0f, levels);
            EXPECT_TRUE(std::is_sorted(cuts.table, cuts.table + 256));
            EXPECT_EQ(std::set<int>(cuts.table, cuts.table + 256),
                      std::set<int>(cuts.values, cuts.values + levels));
        }
}

// Colours.

std::vector<std::uint32_t> Colored(std::vector<Level> levels, const SheetColors& colors) {
    ColorSheets(levels, colors);
    std::vector<std::uint32_t> words(levels.size());
    std::transform(levels.begin(), levels.end(), words.begin(),
                   [](const Level& level) { return level.color; });
    return words;
}

TEST(PaperCollageColors, AreThePicturesOrMixedFromForegroundAndBackground) {
    const std::vector<Level> levels = {
        {0, true, 0x102030}, {127, true, 0x405060}, {255, false, 0x000000}};
    EXPECT_THAT(Colored(levels, {0xFFFFFF, 0x7F7F7F, 255, 0}),
                ::testing::ElementsAre(0x0F1F2F, 0x3F4F5F, 0));
    EXPECT_THAT(Colored(levels, {0xFFFFFF, 0x7F7F7F, 0, 0}),
                ::testing::ElementsAre(0x7D7D7D, 0xBDBDBD, 0xFDFDFD));
}

TEST(PaperCollageColors, ContrastDrivesTheHalvesApart) {
    // All of the colours lose one in the mix.
    const SheetColors all = {0, 0, 255, 1}, half = {0, 0, 255, 0.5f};
    const std::vector<Level> rising = {
        {0, true, 0x656565}, {85, true, 0x656565}, {170, true, 0xC8C8C8}, {255, true, 0xC8C8C8}};
    EXPECT_THAT(Colored(rising, all), ::testing::ElementsAre(0, 0x323232, 0xE3E3E3, 0xFFFFFF));
    EXPECT_THAT(Colored(rising, half),
                ::testing::ElementsAre(0x323232, 0x4B4B4B, 0xD5D5D5, 0xE3E3E3));

    // The lowest byte weighs most after the second: falling colours, though equal by name.
    const std::vector<Level> falling = {
        {0, true, 0x0000FF}, {127, true, 0x123456}, {255, true, 0xFF0000}};
    EXPECT_THAT(Colored(falling, all), ::testing::ElementsAre(0xFFFFFF, 0x113355, 0));

    // The second level would tell that colours fall; without pixels it does not.
    std::vector<Level> gap = {
        {0, true, 0x010101}, {85, false, 0xFFFFFF}, {170, true, 0x808080}, {255, true, 0x808080}};
    EXPECT_EQ(Colored(gap, all).back(), 0xFFFFFFu);
    gap[1].isFound = true;
    EXPECT_EQ(Colored(gap, all).back(), 0u);
}

TEST(PaperCollageColors, AreAveragedFromTheirPixels) {
    CFrame gray;
    ASSERT_TRUE(gray.Init(4, 1, 1, nullptr, PixelFormatMono8, false));
    RandomFrame picture(4, 1, PixelFormatBGRA8, 1);
    const unsigned char brightness[] = {10, 200, 60, 250};
    const unsigned char pixels[] = {1, 2, 3, 0, 40, 50, 60, 0, 2, 4, 8, 0, 43, 250, 60, 0};
    std::memcpy(gray.m_pBuffer, brightness, sizeof brightness);
    std::memcpy(picture.m_pBuffer, pixels, sizeof pixels);
    Level levels[3];
    CutIntoLevels(gray, picture, 0.5f, levels);
    EXPECT_EQ(levels[0].color, 0x050301u);
    EXPECT_FALSE(levels[1].isFound);
    EXPECT_EQ(levels[1].color, 0u);
    EXPECT_EQ(levels[2].color, 0x3C9629u);
}

// Whole renders.

/// Slopes and grain, with bright and dark parts side by side.
void Draw(CFrame& frame) {
    Randomize(frame, 7);
    for (int y = 0; y < frame.m_nHeight; ++y)
        for (int i = 0; i < 4 * frame.m_nWidth; ++i) {
            auto& sample = Processors::RowOf<unsigned char>(frame, y)[i];
            const int slope = (9 * (i / 4) + 4 * y + 20 * (i % 4)) % 256;
            sample = static_cast<unsigned char>((3 * slope + sample) / 4);
        }
}

class PaperCollage : public ::testing::Test {
  protected:
    PaperCollage() { UseDefaults(*effect, host); }

    bool RenderAs(const CFrame& src, CFrame& dst, bool field) {
        RenderInfo info{};
        info.dwFlags = kRenderHasFieldMode;
        info.nFieldMode = field ? 2 : 3;
        return Render(*effect, host, src, dst, &info);
    }

    TestHost host;
    EffectPointer effect{NewEffect(kPaperCollage)};
};

TEST_F(PaperCollage, WithoutDistanceThereAreAsManyColoursAsLevels) {
    RandomFrame src(90, 60, PixelFormatBGRA8, 1), dst(90, 60, PixelFormatBGRA8, 2);
    Draw(src);
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 90; ++x) Processors::RowOf<unsigned char>(src, y)[4 * x + 3] = 9;
    host.values[kRounding].value = 0;
    host.values[kDistance].value = 0;
    for (const auto& [layers, levels] : {std::pair{0.0f, 2u}, {0.5f, 5u}, {1.0f, 8u}}) {
        host.values[kLayers].value = layers;
        ASSERT_TRUE(Render(*effect, host, src, dst));
        std::set<std::uint32_t> colors;
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < 90; ++x) colors.insert(Processors::RowOf<std::uint32_t>(dst, y)[x]);
        EXPECT_EQ(colors.size(), levels);
    }
}

TEST_F(PaperCollage, AsksTheHostInItsOwnOrder) {
    RandomFrame src(9, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2);
    host.asked.clear();
    ASSERT_TRUE(Render(*effect, host, src, dst));
    EXPECT_THAT(host.asked, ::testing::ElementsAre(
                                kBalance, kRounding, kLayers, kForeground, kBackground, kDistance,
                                kShadowColor, kBlendColors, kAngle, kShadowStrength, kContrast));
}

TEST_F(PaperCollage, WithoutMemoryForSheetsThePictureStaysAsItWas) {
    CountingAllocator lender;
    TestHost poor(&lender);
    UseDefaults(*effect, poor);
    RandomFrame src(40, 30, PixelFormatBGRA8, 1), dst(40, 30, PixelFormatBGRA8, 2),
        before(40, 30, PixelFormatBGRA8, 2);
    Processors::CCopyPlane().Process(&src, &before, 3, 3);
    constexpr int kOwnPieces = 5;
    for (lender.refuseAfter = 0; lender.refuseAfter < kOwnPieces; ++lender.refuseAfter) {
        lender.lent = 0;
        EXPECT_TRUE(Render(*effect, poor, src, dst));
        EXPECT_TRUE(SamePixels(dst, before));
    }
}

/// How the sheets would be laid without any thought of time: whole planes with a margin that holds
/// all shadows.
struct PlainCollage {
    int levels, length, dx, dy;
    std::uint32_t shadow;
    SheetColors colors;
    int keep;

    static void LowPassFilter(CFrame& mask) {
        CFrame bordered;
        bordered.Init(mask.m_nWidth + 4, mask.m_nHeight + 4, 1, nullptr, PixelFormatMono8, false);
        Processors::CFillBorder().Process(&mask, &bordered, 2, 2);
        ippiFilterLowpass_8u_C1R(bordered.m_pBuffer + 2 * bordered.m_nByteSpan + 2,
                                 bordered.m_nByteSpan, mask.m_pBuffer, mask.m_nByteSpan,
                                 Processors::SizeOf(mask), kMask3x3);
    }

    void Process(CFrame& picture, CFrame& work, float balance) {
        const int width = work.m_nWidth, height = work.m_nHeight, margin = length * levels;
        CFrame values, paper, collage, mask;
        values.Init(width, height, 1, nullptr, PixelFormatMono8, false);
        Processors::CCopyPlane().Process(&work, &values, 2, 0);
        for (CFrame* frame : {&paper, &collage})
            frame->Init(width + 2 * margin, height + 2 * margin, 4, nullptr, PixelFormatBGRA8,
                        false);
        mask.Init(width + 2 * margin, height + 2 * margin, 1, nullptr, PixelFormatMono8, false);
        Processors::CSetColor().Process(&mask, 0);
        std::vector<Level> cut(static_cast<std::size_t>(levels));
        CutIntoLevels(values, picture, balance, cut);
        ColorSheets(cut, colors);
        Processors::CSetColor().Process(&collage, colors.background | 0xFF000000u);

        const auto lay = [&](std::uint32_t color, CFrame& sheet, int x, int y, bool soft) {
            Processors::CSetColor().Process(&paper, color);
            Processors::CCopy().Process(&sheet, 0, 0, width, height, &mask, x, y);
            if (soft) LowPassFilter(mask);
            Processors::CCopyPlane().Process(&mask, &paper, 0, 3);
            Processors::CAlphaBlend().Process(&paper, &collage, &collage, false);
        };
        for (std::size_t l = 0; l < cut.size(); ++l) {
            CFrame sheet;
            sheet.Init(width, height, 1, nullptr, PixelFormatMono8, false);
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    Processors::RowOf<unsigned char>(sheet, y)[x] =
                        SampleAt(values, y, x) >= static_cast<float>(cut[l].value) ? 255 : 0;
            shadow = DriftShadow(shadow, cut[l > 0 ? l - 1 : 0].color, keep);
            if (length) lay(shadow, sheet, margin + dx, margin + dy, true);
            lay(cut[l].color, sheet, margin, margin, false);
        }
        Processors::CCopy().Process(&collage, margin, margin, width, height, &work, 0, 0);
    }
};

TEST_F(PaperCollage, IsWhatThePlainLayingGives) {
    host.values[kLayers].value = 1;
    host.values[kForeground].color = 0x3080F0;
    host.values[kBackground].color = 0x603010;
    host.values[kBlendColors].value = 0.6f;
    host.values[kContrast].value = 0.3f;
    host.values[kShadowColor].color = 0x106020;
    host.values[kShadowStrength].value = 0.7f;
    const SheetColors colors = {0xF08030, 0x103060, 153, 0.3f};
    const struct {
        int width, height;
        bool field;
        float layers, distance, angle, rounding;
        int levels, length, dx, dy, radius;
    } cases[] = {
        {50, 40, false, 1, 0, 0.1f, 0, 8, 0, 0, 0, 0},
        {50, 40, false, 1, 1, 0, 0.2f, 8, 1, 1, 0, 1},
        {50, 40, false, 1, 1, 0.75f, 0, 8, 1, 0, 1, 0},
        {70, 340, false, 1, 1, 0.15f, 0, 8, 10, 6, -8, 0},         // 5.88, -8.09
        {70, 340, false, 0.5f, 1, 0.635f, 0.1f, 5, 10, -7, 8, 5},  // -6.61, 7.50
        {70, 340, false, 0, 1, 0.11f, 0, 2, 10, 8, -7, 0},         // 7.71, -6.37
        {70, 170, true, 1, 1, 0.11f, 0.2f, 8, 10, 8, -3, 5},       // half of -6.37
        {70, 340, false, 1, 1, 0.89f, 0, 8, 10, 8, 7, 0},          // 7.71, 6.37
        {3, 340, false, 1, 1, 0.5f, 0, 8, 10, -10, 0, 0},  // farther than the picture is wide
        {3, 340, false, 1, 1, 0.15f, 0, 8, 10, 6, -8, 0},
        {1, 40, false, 0.5f, 1, 0.25f, 0, 5, 1, 0, -1, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.width << " x " << c.height << ", angle " << c.angle);
        host.values[kLayers].value = c.layers;
        host.values[kDistance].value = c.distance;
        host.values[kAngle].value = c.angle;
        host.values[kRounding].value = c.rounding;
        RandomFrame src(c.width, c.height, PixelFormatBGRA8, 1),
            dst(c.width, c.height, PixelFormatBGRA8, 2),
            work(c.width, c.height, PixelFormatBGRA8, 3);
        Draw(src);
        ASSERT_TRUE(RenderAs(src, dst, c.field));

        Processors::CMonoChrome().Process(&src, &work, 0xFFFFFF);
        const auto radius = static_cast<float>(c.radius);
        Processors::CBlur().Process(&work, &work, c.field ? 2 * radius : radius, radius, nullptr,
                                    false);
        PlainCollage{c.levels, c.length, c.dx, c.dy, 0x206010, colors, 76}.Process(src, work, 0.5f);
        Processors::CCopyPlane().Process(&src, &work, 3, 3);
        EXPECT_TRUE(SamePixels(dst, work));
    }
}

}  // namespace
}  // namespace brushworks
