// Resampling of rectangles: what each interpolation makes of enlarging twice, and what is refused.
#include "processors/resize.h"

#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::kAllFormats;
using testing::RandomFrame;
using testing::SamePixels;
using testing::SampleAt;
using testing::SamplesPerPixel;

TEST(Resize, RectanglesGoToRectanglesInAllFormats) {
    for (const PixelFormat format : kAllFormats)
        for (const double factor : {0.0, 2.0}) {
            RandomFrame src(11, 9, format, 1), dst(16, 13, format, 2), before(16, 13, format, 2);
            ASSERT_TRUE(Processors::CResize().Process(&src, &dst, {2, 1, 7, 5}, {3, 4, 13, 12}, 0,
                                                      factor, factor, 0.0, 0.0));
            const int n = SamplesPerPixel(src);
            for (int y = 0; y < 13; ++y)
                for (int i = 0; i < 16 * n; ++i) {
                    const int x = i / n;
                    const bool inside = x >= 3 && x < 13 && y >= 4 && y < 12;
                    ASSERT_EQ(SampleAt(dst, y, i),
                              inside ? SampleAt(src, 1 + (y - 4) / 2, (2 + (x - 3) / 2) * n + i % n)
                                     : SampleAt(before, y, i));
                }
        }
}

TEST(Resize, InterpolationsDifferAsTheirTapsDo) {
    RandomFrame src(8, 1, PixelFormatMono32f, 1);
    const float ramp[8] = {0, 0, 0, 0, 1, 1, 1, 1};
    for (int x = 0; x < 8; ++x) Processors::RowOf<float>(src, 0)[x] = ramp[x];
    // A quarter of a pixel before the step's middle and after it, at x 7 and 8.
    const auto at = [&](int interpolation, int x) {
        RandomFrame dst(16, 1, PixelFormatMono32f, 2);
        EXPECT_TRUE(Processors::CResize().Process(&src, &dst, {0, 0, 8, 1}, {0, 0, 16, 1},
                                                  interpolation, 0.0, 0.0, 0.0, 0.0));
        return SampleAt(dst, 0, x);
    };
    EXPECT_EQ(at(0, 7), 0.0f);
    EXPECT_FLOAT_EQ(at(1, 7), 0.25f);
    EXPECT_FLOAT_EQ(at(99, 7), 0.25f) << "unknown ones are linear";
    EXPECT_LT(at(2, 6), 0.0f) << "cubic undershoots";
    EXPECT_LT(at(3, 6), 0.0f);
    EXPECT_NE(at(2, 7), at(3, 7));
}

TEST(Resize, RefusesWhatDoesNotFit) {
    RandomFrame src(8, 8, PixelFormatBGRA8, 1), dst(8, 8, PixelFormatBGRA8, 2),
        before(8, 8, PixelFormatBGRA8, 2), plane(8, 8, PixelFormatMono8, 1);
    const tagRECT all = {0, 0, 8, 8};
    const auto process = [&](CFrame& from, tagRECT a, tagRECT b, double factor) {
        return Processors::CResize().Process(&from, &dst, a, b, 1, factor, factor, 0.0, 0.0);
    };
    EXPECT_FALSE(process(plane, all, all, 0.0));
    EXPECT_FALSE(process(src, all, all, -1.0));
    for (const tagRECT bad :
         {tagRECT{-1, 0, 4, 4}, tagRECT{0, 0, 9, 8}, tagRECT{4, 4, 4, 8}, tagRECT{0, 5, 4, 4}}) {
        EXPECT_FALSE(process(src, bad, all, 0.0));
        EXPECT_FALSE(process(src, all, bad, 0.0));
    }
    src.m_pfPixelFormat = static_cast<PixelFormat>(2);
    EXPECT_TRUE(process(src, all, all, 0.0)) << "no resize serves it";
    EXPECT_TRUE(SamePixels(dst, before));
}

}  // namespace
}  // namespace brushworks
