// Borders: every destination pixel is the nearest one of what was placed.
#include "processors/fill_border.h"

#include <algorithm>

#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::kAllFormats;
using testing::RandomFrame;
using testing::SampleAt;
using testing::SamplesPerPixel;

/// What stands at (x, y) when the rectangle at (`fromX`, `fromY`) of `src` lies at (left, top).
float Nearest(const CFrame& src, IppiSize size, int fromX, int fromY, int x, int y, int left,
              int top, int c) {
    const int sx = fromX + std::clamp(x - left, 0, size.width - 1);
    const int sy = fromY + std::clamp(y - top, 0, size.height - 1);
    return SampleAt(src, sy, sx * SamplesPerPixel(src) + c);
}

TEST(FillBorder, SpreadsASmallerFrame) {
    for (const PixelFormat format : kAllFormats) {
        SCOPED_TRACE(format);
        RandomFrame src(5, 3, format, 1), dst(12, 9, format, 2);
        ASSERT_TRUE(Processors::CFillBorder().Process(&src, &dst, 4, 2));
        for (int y = 0; y < 9; ++y)
            for (int x = 0; x < 12; ++x)
                for (int c = 0; c < SamplesPerPixel(src); ++c)
                    ASSERT_EQ(SampleAt(dst, y, x * SamplesPerPixel(src) + c),
                              Nearest(src, {5, 3}, 0, 0, x, y, 4, 2, c));
    }
}

TEST(FillBorder, FramesOfOneSizeKeepTheInterior) {
    for (const PixelFormat format : kAllFormats) {
        SCOPED_TRACE(format);
        RandomFrame src(10, 8, format, 1), dst(10, 8, format, 2), same(10, 8, format, 1);
        ASSERT_TRUE(Processors::CFillBorder().Process(&src, &dst, 3, 2));
        ASSERT_TRUE(Processors::CFillBorder().Process(&same, &same, 3, 2));
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 10; ++x)
                for (int c = 0; c < SamplesPerPixel(src); ++c) {
                    const float expected = Nearest(src, {4, 4}, 3, 2, x, y, 3, 2, c);
                    ASSERT_EQ(SampleAt(dst, y, x * SamplesPerPixel(src) + c), expected);
                    ASSERT_EQ(SampleAt(same, y, x * SamplesPerPixel(src) + c), expected);
                }
    }
}

TEST(FillBorder, RefusesWhatDoesNotFit) {
    Processors::CFillBorder fill;
    RandomFrame plane(4, 4, PixelFormatMono8, 3), color(4, 4, PixelFormatBGRA8, 1);
    CFrame empty;
    EXPECT_FALSE(fill.Process(nullptr, &color, 1, 1));
    EXPECT_FALSE(fill.Process(&color, &empty, 1, 1));
    EXPECT_FALSE(fill.Process(&plane, &color, 1, 1));
    for (const PixelFormat format : {PixelFormatBGRA8, PixelFormatBGRA32f}) {
        RandomFrame small(4, 4, format, 1), large(6, 6, format, 2);
        EXPECT_FALSE(fill.Process(&small, &large, 3, 1));  // past the right edge
        EXPECT_FALSE(fill.Process(&small, &large, -1, 0));
        EXPECT_FALSE(fill.Process(&large, &small, 0, 0));  // larger than its place
        EXPECT_FALSE(fill.Process(&small, &small, 2, 1));  // no interior left
        EXPECT_FALSE(fill.Process(&small, &small, 1 << 30, 1 << 30));
    }
    RandomFrame floats(4, 4, PixelFormatBGRA32f, 1), larger(6, 6, PixelFormatBGRA32f, 1);
    EXPECT_FALSE(fill.Process8u(&floats, &larger, 1, 1));
}

}  // namespace
}  // namespace brushworks
