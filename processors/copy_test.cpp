// Copies of frames, rectangles and planes.
#include "processors/copy.h"

#include "processors/copy_plane.h"
#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::kAllFormats;
using testing::RandomFrame;
using testing::SamePixels;
using testing::SampleAt;
using testing::SamplesPerPixel;

TEST(Copy, WholeFramesCopyTheCommonRectangle) {
    for (const PixelFormat format : kAllFormats) {
        SCOPED_TRACE(format);
        RandomFrame src(9, 7, format, 1), dst(6, 11, format, 2), before(6, 11, format, 2);
        ASSERT_TRUE(Processors::CCopy().Process(&src, &dst));
        const int n = SamplesPerPixel(src);
        for (int y = 0; y < 11; ++y)
            for (int i = 0; i < 6 * n; ++i)
                ASSERT_EQ(SampleAt(dst, y, i),
                          SampleAt(y < 7 ? static_cast<CFrame&>(src) : before, y, i));
    }
}

TEST(Copy, FormatsWithoutACopyAreTrueWithNothingDone) {
    RandomFrame src(4, 4, PixelFormatBGRA8, 1), dst(4, 4, PixelFormatBGRA8, 2),
        before(4, 4, PixelFormatBGRA8, 2);
    src.m_pfPixelFormat = static_cast<PixelFormat>(2);
    EXPECT_TRUE(Processors::CCopy().Process(&src, &dst));
    EXPECT_TRUE(SamePixels(dst, before));
    EXPECT_FALSE(Processors::CCopy().Process(&src, 0, 0, 4, 4, &dst, 0, 0));
}

TEST(Copy, RectanglesAreCutToBothFrames) {
    for (const PixelFormat format : kAllFormats) {
        SCOPED_TRACE(format);
        RandomFrame src(9, 7, format, 1), dst(8, 6, format, 2), before(8, 6, format, 2);
        ASSERT_TRUE(Processors::CCopy().Process(&src, 3, 2, 100, 100, &dst, 4, -5));
        const int n = SamplesPerPixel(src);
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < 8; ++x)
                for (int c = 0; c < n; ++c) {
                    const bool inside = x >= 4 && y < 5;
                    ASSERT_EQ(SampleAt(dst, y, x * n + c),
                              inside ? SampleAt(src, y + 2, (x - 1) * n + c)
                                     : SampleAt(before, y, x * n + c));
                }
    }
}

TEST(Copy, EmptyRectanglesSucceedAndNegativeOnesDoNot) {
    RandomFrame color(4, 4, PixelFormatBGRA8, 1), plane(4, 4, PixelFormatMono8, 2);
    RandomFrame other(4, 4, PixelFormatBGRA8, 3);
    Processors::CCopy copy;
    EXPECT_TRUE(copy.Process(&color, 4, 0, 2, 2, &plane, 0, 0));
    EXPECT_TRUE(copy.Process(&color, 0, 0, 0, 2, &plane, 0, 0));
    EXPECT_FALSE(copy.Process(&color, 0, 0, 2, 2, &plane, 0, 0));
    EXPECT_FALSE(copy.Process(&color, 0, 0, -1, 2, &other, 0, 0));
    other.Clear();
    EXPECT_TRUE(copy.Process(&color, 0, 0, 2, 2, &other, 0, 0));  // nothing to copy to
    EXPECT_FALSE(copy.Process(&color, &other));
}

TEST(CopyPlane, MovesOneChannelInEveryPairing) {
    Processors::CCopyPlane copy;
    for (const auto& [four, one] : {std::pair{PixelFormatBGRA8, PixelFormatMono8},
                                    {PixelFormatARGB8, PixelFormatMono8},
                                    {PixelFormatBGRA32f, PixelFormatMono32f},
                                    {PixelFormatARGB32f, PixelFormatMono32f}}) {
        SCOPED_TRACE(four);
        for (int plane = 0; plane < 4; ++plane) {
            RandomFrame color(7, 5, four, 1), gray(9, 4, one, 2), target(7, 5, four, 3),
                before(7, 5, four, 3);
            ASSERT_TRUE(
                copy.Process(&color, &gray, plane, 99));  // the one-channel side ignores its plane
            for (int y = 0; y < 4; ++y)
                for (int x = 0; x < 7; ++x)
                    ASSERT_EQ(SampleAt(gray, y, x), SampleAt(color, y, 4 * x + plane));
            ASSERT_TRUE(copy.Process(&gray, &target, 99, plane));
            ASSERT_TRUE(copy.Process(&color, &target, plane, 3 - plane));
            for (int y = 0; y < 5; ++y)
                for (int x = 0; x < 7; ++x)
                    for (int c = 0; c < 4; ++c) {
                        const float expected = c == 3 - plane ? SampleAt(color, y, 4 * x + plane)
                                               : c == plane && y < 4
                                                   ? SampleAt(gray, y, x)
                                                   : SampleAt(before, y, 4 * x + c);
                        ASSERT_EQ(SampleAt(target, y, 4 * x + c), expected);
                    }
        }
    }
}

TEST(CopyPlane, RefusesWhatDoesNotPair) {
    RandomFrame color(4, 4, PixelFormatBGRA8, 1), gray(4, 4, PixelFormatMono8, 2);
    RandomFrame floats(4, 4, PixelFormatBGRA32f, 3);
    Processors::CCopyPlane copy;
    EXPECT_FALSE(copy.Process(&gray, &gray, 0, 0));
    EXPECT_FALSE(copy.Process(&color, &floats, 0, 0));
    EXPECT_FALSE(copy.Process(&floats, &gray, 0, 0));
    EXPECT_FALSE(copy.Process(&color, &gray, 4, 0));
    EXPECT_FALSE(copy.Process(&gray, &color, 0, -1));
}

}  // namespace
}  // namespace brushworks
