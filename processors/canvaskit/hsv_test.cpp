// Laws of the HSV scaling, and its course step by step.
#include "processors/canvaskit/hsv.h"

#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::RandomFrame;
using testing::SamePixels;
using testing::SampleAt;

TEST(HSV, NeutralFactorsKeepGraysAndAlpha) {
    RandomFrame src(13, 40, PixelFormatBGRA8, 1), dst(13, 40, PixelFormatBGRA8, 2);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 13; ++x) {
            unsigned char* pixel = Processors::RowOf<unsigned char>(src, y) + 4 * x;
            pixel[1] = pixel[2] = pixel[0];
        }
    ASSERT_TRUE(Canvaskit::CHSV().Process(src, dst, 1.0f, 1.5f, 1.0f));
    EXPECT_TRUE(SamePixels(src, dst));
}

TEST(HSV, ValueScalesTheLargestSample) {
    RandomFrame src(33, 50, PixelFormatBGRA8, 3), dst(33, 50, PixelFormatBGRA8, 4);
    ASSERT_TRUE(Canvaskit::CHSV().Process(src, dst, 1.0f, 1.0f, 0.5f));
    auto largest = [](const CFrame& frame, int y, int x) {
        return std::max({SampleAt(frame, y, 4 * x), SampleAt(frame, y, 4 * x + 1),
                         SampleAt(frame, y, 4 * x + 2)});
    };
    for (int y = 0; y < 50; ++y)
        for (int x = 0; x < 33; ++x) {
            ASSERT_NEAR(largest(dst, y, x), largest(src, y, x) / 2, 0.5f);
            ASSERT_EQ(SampleAt(dst, y, 4 * x + 3), SampleAt(src, y, 4 * x + 3));
        }
}

TEST(HSV, WorksInPlaceAndInStripsAlike) {
    RandomFrame src(31, 100, PixelFormatARGB8, 5), dst(31, 100, PixelFormatARGB8, 6),
        whole(31, 100, PixelFormatARGB8, 5);
    ASSERT_TRUE(Canvaskit::CHSV().Process(src, dst, 0.7f, 1.3f, 1.1f));
    for (int y = 0; y < 100; ++y) {  // row by row
        CFrame row;
        row.Init(&whole, 0, y, 31, 1, false);
        ASSERT_TRUE(Canvaskit::CHSV().Process(row, row, 0.7f, 1.3f, 1.1f));
    }
    EXPECT_TRUE(SamePixels(whole, dst));
}

TEST(HSV, RefusesOtherDepths) {
    RandomFrame color(4, 4, PixelFormatBGRA8, 1), before(4, 4, PixelFormatBGRA8, 1),
        plane(4, 4, PixelFormatMono8, 1);
    CFrame empty;
    EXPECT_FALSE(Canvaskit::CHSV().Process(plane, color, 1, 1, 1));
    EXPECT_FALSE(Canvaskit::CHSV().Process(color, plane, 1, 1, 1));
    empty.m_nDepth = 4;
    EXPECT_FALSE(Canvaskit::CHSV().Process(color, empty, 1, 1, 1));
    EXPECT_TRUE(SamePixels(color, before));
}

}  // namespace
}  // namespace brushworks
