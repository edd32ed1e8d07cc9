// Fast math and the pixel aspect.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "frames/aspect.h"
#include "frames/fast_math.h"
#include "frames/truncate.h"

namespace brushworks {
namespace {

TEST(FastMath, TablesCloseOnOnePeriod) {
    EXPECT_EQ(LFMath::FastSin(0.0f), 0.0f);
    EXPECT_EQ(LFMath::FastCos(0.0f), 1.0f);
    EXPECT_EQ(LFMath::afSin.back(), LFMath::afSin.front());
    EXPECT_EQ(LFMath::afCos.back(), LFMath::afCos.front());
    EXPECT_EQ(LFMath::FastSin(-1.0f), LFMath::afSin[528]);  // at the reduced angle 5.2831855
    EXPECT_EQ(LFMath::FastSin(6.2831855f), LFMath::afSin[628]);
    for (float angle = -20.0f; angle < 20.0f; angle += 0.01f)
        ASSERT_NEAR(LFMath::FastSin(angle), std::sin(angle), 0.0085f) << angle;
}

TEST(FastMath, AnyFloatIsSafe) {
    for (const float wild : {1e9f, -1e30f, std::numeric_limits<float>::infinity(),
                             std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_LE(std::fabs(LFMath::FastSin(wild)), 1.0f);
        EXPECT_LE(std::fabs(LFMath::FastCos(wild)), 1.0f);
    }
    EXPECT_EQ(Truncate(std::numeric_limits<float>::quiet_NaN()), 0);
    EXPECT_EQ(Truncate(3e9f), INT32_MAX);
    EXPECT_EQ(Truncate(-3e9f), INT32_MIN);
    EXPECT_EQ(Truncate(-2.9f), -2);
}

TEST(FastMath, SquareRootTakesFiveSteps) {
    EXPECT_EQ(LFMath::FastSqrt(1.0f), 1.0f);
    EXPECT_EQ(LFMath::FastSqrt(0.0f), 1.0f / 64.0f);  // halved five times from one half
    EXPECT_NEAR(LFMath::FastSqrt(2.0f), std::sqrt(2.0f), 1e-6f);
    EXPECT_GT(LFMath::FastSqrt(1e6f), 10000.0f);  // too few steps for so large a value
}

TEST(Aspect, FollowsInfoAndFields) {
    AspectHelper aspect;
    aspect.Init(nullptr, true, false);
    EXPECT_EQ(aspect.fAspect, 1.0f);
    EXPECT_FLOAT_EQ(aspect.fAxisX, 0.70710677f);
    EXPECT_FLOAT_EQ(aspect.fAxisY, 0.70710677f);
    EXPECT_EQ(aspect.nAspect1024, 1024);
    EXPECT_FALSE(aspect.bAspectApplied);

    RenderInfo info{kRenderHasPixelAspect, 0.5, 0, kFieldModeFrame};
    aspect.Init(&info, true, false);  // narrow pixels stretch the other axis
    EXPECT_FLOAT_EQ(aspect.fAxisY / aspect.fAxisX, 2.0f);
    EXPECT_TRUE(aspect.bAxisFree);
    info.nFieldMode = 1;  // tested without its flag, and doubling
    aspect.Init(&info, true, true);
    EXPECT_EQ(aspect.fAspect, 1.0f);
    info.dPixelAspect = 1.5;
    aspect.Init(&info, true, true);
    EXPECT_EQ(aspect.nAspect1024, 3072);
    EXPECT_FLOAT_EQ(aspect.fAxisX / aspect.fAxisY, 3.0f);
    EXPECT_FALSE(aspect.bAxisFree);
    info = {0, 7.0, 0, 2};  // an aspect without its flag does not count
    aspect.Init(&info, false, false);
    EXPECT_EQ(aspect.fAspect, 1.0f);
}

}  // namespace
}  // namespace brushworks
