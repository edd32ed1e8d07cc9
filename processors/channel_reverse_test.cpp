// Orders of channels.
#include "processors/channel_reverse.h"

#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::kColorFormats;
using testing::RandomFrame;
using testing::SamePixels;
using testing::SampleAt;

TEST(ChannelReverse, ReversesAcrossFramesAndInPlace) {
    Processors::CChannelReverse reverse;
    for (const PixelFormat format : kColorFormats) {
        SCOPED_TRACE(format);
        RandomFrame src(37, 5, format, 1), dst(37, 5, format, 2), original(37, 5, format, 1);
        ASSERT_TRUE(reverse.Process(&src, &dst));
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 37; ++x)
                for (int c = 0; c < 4; ++c)
                    ASSERT_EQ(SampleAt(dst, y, 4 * x + c), SampleAt(src, y, 4 * x + 3 - c));
        ASSERT_TRUE(reverse.Process(&src, &src));
        EXPECT_TRUE(SamePixels(src, dst));
        ASSERT_TRUE(reverse.Process(&src, &src));
        EXPECT_TRUE(SamePixels(src, original));
    }
}

TEST(ChannelReverse, PermutesByOrder) {
    Processors::CChannelReverse reverse;
    for (const PixelFormat format : kColorFormats) {
        SCOPED_TRACE(format);
        RandomFrame frame(9, 3, format, 1), before(9, 3, format, 1);
        unsigned int wrong[4] = {0, 1, 4, 2};
        EXPECT_FALSE(reverse.Process(&frame, wrong));
        EXPECT_TRUE(SamePixels(frame, before));
        unsigned int order[4] = {2, 2, 0, 1};
        // Float frames answer false though the work is done.
        EXPECT_EQ(reverse.Process(&frame, order), Processors::IsByteColor(frame));
        for (int y = 0; y < 3; ++y)
            for (int i = 0; i < 9 * 4; ++i)
                ASSERT_EQ(SampleAt(frame, y, i),
                          SampleAt(before, y, i / 4 * 4 + static_cast<int>(order[i % 4])));
    }
}

TEST(ChannelReverse, RefusesFramesWithoutFourChannels) {
    Processors::CChannelReverse reverse;
    RandomFrame plane(4, 4, PixelFormatMono8, 1), color(4, 4, PixelFormatBGRA8, 1);
    CFrame empty;
    unsigned int order[4] = {3, 2, 1, 0};
    EXPECT_FALSE(reverse.Process(&plane, &plane));
    EXPECT_FALSE(reverse.Process(&plane, order));
    EXPECT_FALSE(reverse.Process(nullptr, &color));
    EXPECT_FALSE(reverse.Process(&color, &empty));
    EXPECT_FALSE(reverse.Process8u(nullptr, order));
}

}  // namespace
}  // namespace brushworks
