// Pencil Rubbing's kernel and what it makes of flat and sloping pictures.
#include "effects/pencil_rubbing/pencil_rubbing.h"

#include <gmock/gmock.h>

#include <cmath>

#include "effects/testing.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix
using ::testing::ElementsAre;
using ::testing::FloatNear;
using ::testing::Pointwise;

constexpr unsigned int kPencilRubbing = 9;
constexpr unsigned int kAngle = 4;

std::vector<float> Turned(float angle) {
    std::vector<float> kernel = {1, 2, 3, 8, 9, 4, 7, 6, 5};
    CPencilRubbing::MatrixRotate(kernel.data(), angle);
    return kernel;
}

TEST(PencilRubbing, TheRingTurnsStepByStepAndBackToItsStart) {
    EXPECT_THAT(Turned(0.0f), ElementsAre(1, 2, 3, 8, 9, 4, 7, 6, 5));
    EXPECT_THAT(Turned(0.125f), ElementsAre(2, 3, 4, 1, 9, 5, 8, 7, 6));
    EXPECT_THAT(Turned(0.75f), ElementsAre(7, 8, 1, 6, 9, 2, 5, 4, 3));
    EXPECT_THAT(Turned(1.0f), ElementsAre(1, 2, 3, 8, 9, 4, 7, 6, 5));
    const std::vector<float> between = {1.25f, 2.25f, 3.25f, 6.25f, 9, 4.25f, 7.25f, 6.25f, 5.25f};
    EXPECT_THAT(Turned(0.03125f), Pointwise(FloatNear(1e-6f), between));
}

TEST(PencilRubbing, FlatColoursDoubleUpToTheRim) {
    const EffectPointer effect(NewEffect(kPencilRubbing));
    TestHost host;
    UseDefaults(*effect, host);
    for (const PixelFormat format : kColorFormats)
        for (const float angle : {0.0f, 0.2f, 0.61f}) {
            RandomFrame src(9, 8, format, 1), dst(9, 8, format, 2);
            const bool floats = Processors::IsFloatColor(src);
            const float low = floats ? 0.25f : 60.0f, high = floats ? 0.75f : 200.0f;
            const int alpha = Processors::AlphaPlane(src);
            for (int y = 0; y < 8; ++y)
                for (int i = 0; i < 36; ++i) {
                    const float value = i % 4 == 1 ? low : high;
                    if (floats)
                        Processors::RowOf<float>(src, y)[i] = value;
                    else
                        Processors::RowOf<unsigned char>(src, y)[i] =
                            static_cast<unsigned char>(value);
                }
            host.values[kAngle].value = angle;
            ASSERT_TRUE(Render(*effect, host, src, dst));
            for (int y = 0; y < 8; ++y)
                for (int i = 0; i < 36; ++i)
                    if (i % 4 != alpha) {
                        const float doubled = i % 4 == 1 ? 2 * low : floats ? 1.0f : 255.0f;
                        ASSERT_NEAR(SampleAt(dst, y, i), doubled, floats ? 0.01f : 2.0f);
                    }
        }
}

TEST(PencilRubbing, ClampsWhatItIsToldToAndNoMore) {
    RandomFrame frame(3, 2, PixelFormatBGRA32f, 1);
    for (int y = 0; y < 2; ++y)
        for (int i = 0; i < 12; ++i)
            Processors::RowOf<float>(frame, y)[i] = i % 3 == 0 ? NAN : i % 3 == 1 ? -2.0f : 7.0f;
    CPencilRubbing::ClampImage(&frame, 2, 1);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(SampleAt(frame, 0, i), i % 3 == 2 ? 1.0f : 0.0f);
    EXPECT_EQ(SampleAt(frame, 0, 8), 7.0f);
    EXPECT_EQ(SampleAt(frame, 1, 1), -2.0f);
}

}  // namespace
}  // namespace brushworks
