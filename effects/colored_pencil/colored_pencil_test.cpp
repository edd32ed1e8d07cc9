// Colored Pencil against its steps in plain loops.
#include <cmath>

#include "effects/testing.h"
#include "processors/color_twist.h"
#include "processors/smooth.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kColoredPencil = 2;
enum Param : unsigned int { kColorShift, kColor, kBrightness, kContrast, kDetails, kFill };

/// What is left of `sample` where its neighbours differ by at most `difference`.
int Mark(int sample, int difference, float shade) {
    const auto r = static_cast<float>(sample + 1), j = static_cast<float>(difference);
    const float v =
        ((256.0f - r) / ((j / std::sqrt(r)) / 3.0f + 1.0f) - j * static_cast<float>(sample / 100)) *
            (shade * 0.7f + 0.3f) +
        static_cast<float>(sample);
    return std::min(std::max(static_cast<int>(v), 0), 255);
}

void DrawPlainly(const CFrame& smooth, CFrame& drawing, float shade) {
    const int width = smooth.m_nWidth, height = smooth.m_nHeight;
    auto at = [&](int x, int y, int c) {
        x = std::min(std::max(x, 0), width - 1);
        y = std::min(std::max(y, 0), height - 1);
        return static_cast<int>(Processors::RowOf<unsigned char>(smooth, y)[4 * x + c]);
    };
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int c = 0; c < 3; ++c) {
                int most = 0;
                for (const int dx : {-1, 0})  // never to the right
                    for (const int dy : {-1, 0, 1})
                        most = std::max(most, std::abs(at(x, y, c) - at(x + dx, y + dy, c)));
                Processors::RowOf<unsigned char>(drawing, y)[4 * x + c] =
                    static_cast<unsigned char>(Mark(at(x, y, c), most, shade));
            }
}

TEST(ColoredPencil, DrawsByTheDifferencesToTheLeftAboveAndBelow) {
    const EffectPointer effect(NewEffect(kColoredPencil));
    RenderInfo info{};
    info.dwFlags = kRenderHasFieldMode;
    for (const float fill : {0.0f, 0.35f, 1.0f})
        for (const float details : {0.0f, 0.6f})
            for (const bool field : {false, true}) {
                TestHost host;
                const float values[] = {0.3f, 0.6f, 0.5f, 0.7f, details, fill};
                for (unsigned int i = 0; i < 6; ++i) host.values[i].value = values[i];
                info.nFieldMode = field ? 1 : 3;
                RandomFrame src(53, 90, PixelFormatBGRA8, 1), dst(53, 90, PixelFormatBGRA8, 2),
                    smooth(53, 90, PixelFormatBGRA8, 3), expected(53, 90, PixelFormatBGRA8, 4);
                ASSERT_TRUE(Render(*effect, host, src, dst, &info));

                Processors::CSmooth().Process(&src, &smooth, nullptr, nullptr, 1.0f,
                                              (details * -0.85f + 0.85f) * 0.5f + 0.1f, 0.25f, 0.0f,
                                              field, nullptr, nullptr);
                DrawPlainly(smooth, expected, 1.0f - fill);
                MemoryAllocator allocator;
                Processors::CColorTwist().Process(
                    &expected, &expected, (0.7f * 0.5f + 0.5f) * (0.7f * 0.5f + 0.5f),
                    0.7f * -0.13000001f + 0.3f + (0.7f * -0.26999998f + 0.39999998f) * 0.5f, 0.6f,
                    (0.3f - 0.5f) * 0.3f + 0.5f, allocator);
                for (int y = 0; y < 90; ++y)
                    for (int i = 0; i < 4 * 53; ++i)
                        if (i % 4 != 3) {
                            ASSERT_EQ(SampleAt(dst, y, i), SampleAt(expected, y, i));
                        }
            }
}

}  // namespace
}  // namespace brushworks
