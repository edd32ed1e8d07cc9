// Charcoal: the curve of its contrast, and inks by the strength of strokes.
#include "effects/charcoal/charcoal.h"

#include <cmath>

#include "effects/testing.h"
#include "processors/canvaskit/edge.h"
#include "processors/canvaskit/gaussian.h"
#include "processors/canvaskit/gray.h"
#include "processors/smooth.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kCharcoal = 1;
enum Param : unsigned int { kDetails, kWidth, kContrast, kPen, kSurface, kColor };

TEST(Charcoal, TheCurveIsMirroredAndARampOnlyAtNothing) {
    unsigned char ramp[256], faint[256], strong[256];
    CCharcoal::CreateGammaTable(0.0f, ramp);
    CCharcoal::CreateGammaTable(0.001f, faint);
    CCharcoal::CreateGammaTable(1.0f, strong);
    for (int i = 0; i < 128; ++i) {
        EXPECT_EQ(ramp[i], i * 256 / 255);
        for (const unsigned char* table : {ramp, faint, strong}) {
            EXPECT_NEAR(table[i] + table[255 - i], 255, 1);
            EXPECT_LE(table[i], table[255 - i]);
        }
    }
    EXPECT_GT(faint[10], ramp[10] + 25);  // the faintest curve is flat, not a ramp
    EXPECT_LT(strong[64], 10);
    EXPECT_GT(strong[192], 245);
}

TEST(Charcoal, BarePaperHasTheSurfacesColour) {
    const EffectPointer effect(NewEffect(kCharcoal));
    TestHost host;
    UseDefaults(*effect, host);
    host.values[kContrast].value = 0.0f;
    host.values[kSurface].color = 0x336699;  // red in the low byte
    RandomFrame src(20, 20, PixelFormatBGRA8, 1), dst(20, 20, PixelFormatBGRA8, 2);
    for (int y = 0; y < 20; ++y) std::memset(Processors::RowOf<char>(src, y), 90, 80);
    ASSERT_TRUE(Render(*effect, host, src, dst));
    // No stroke: 255 in the plane, index 95 of 96, and so 252 of 256 parts of the surface and 3 of
    // 256 of pen and picture: 60 % of three parts is 1 part of the picture.
    const int expected[] = {(0x33 * 252 + 90) >> 8, (0x66 * 252 + 90) >> 8, (0x99 * 252 + 90) >> 8};
    for (int i = 0; i < 3; ++i) {
        const int value = expected[i];
        EXPECT_EQ(dst.m_pBuffer[i], value < 128
                                        ? value * 256 / 255
                                        : static_cast<int>(255 - (255 - value) * 256 / 255.0));
    }
}

TEST(Charcoal, DrawsTheStepsOfItsProcessors) {
    const EffectPointer effect(NewEffect(kCharcoal));
    for (const bool field : {false, true}) {
        TestHost host;
        UseDefaults(*effect, host);
        host.values[kDetails].value = 0.4f;
        host.values[kWidth].value = 0.7f;
        host.values[kPen].color = 0x1040F0;
        RenderInfo info{};
        info.dwFlags = kRenderHasFieldMode;
        info.nFieldMode = field ? 2 : 3;
        constexpr int kWidthOf = 61, kHeightOf = 120;
        RandomFrame src(kWidthOf, kHeightOf, PixelFormatBGRA8, 1),
            dst(kWidthOf, kHeightOf, PixelFormatBGRA8, 2),
            gray(kWidthOf, kHeightOf, PixelFormatMono8, 3),
            strokes(kWidthOf, kHeightOf, PixelFormatMono8, 4);
        ASSERT_TRUE(Render(*effect, host, src, dst, &info));

        Canvaskit::CRGBToGray().Process(src, gray);
        Processors::CSmooth().Process(&gray, &gray, nullptr, nullptr, 1.0f,
                                      (1.0f - 0.4f) * 0.5f + 0.1f, 0.11f, 0.0f, field, nullptr,
                                      nullptr);
        Canvaskit::CEdge().Process(gray, gray, 3);
        Canvaskit::CGuassian().Process(gray, strokes,
                                       (1.4f + 0.01f) * std::sqrt(0.5f * (field ? 2.0f : 1.0f)),
                                       field, nullptr);
        Canvaskit::CNegate().Process(strokes);
        unsigned char curve[256];
        CCharcoal::CreateGammaTable(host.values[kContrast].value, curve);
        const int pen[] = {0x10, 0x40, 0xF0}, own = static_cast<int>(0.6f * 255.0f);
        for (int y = 0; y < kHeightOf; ++y)
            for (int i = 0; i < 4 * kWidthOf; ++i) {
                if (i % 4 == 3) continue;
                const int sum = 3 * Processors::RowOf<unsigned char>(strokes, y)[i / 4];
                const int t = static_cast<int>((sum >> 3) / 96.0 * 255.0);
                const int c = (own * (255 - t)) >> 8, a = 255 - t - c;
                const int s = Processors::RowOf<unsigned char>(src, y)[i];
                ASSERT_EQ(Processors::RowOf<unsigned char>(dst, y)[i],
                          curve[(pen[i % 4] * a + 255 * t + s * c) >> 8]);
            }
    }
}

}  // namespace
}  // namespace brushworks
