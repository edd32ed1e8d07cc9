// Frames: wrapping, owning, views, and what becomes of strange sizes.
#include "frames/frame.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "frames/art_frame.h"
#include "frames/memory_allocator.h"
#include "frames/testing_host.h"

namespace brushworks {
namespace {

TEST(Frame, NegativeStrideBecomesAFlippedFrameFromTheLowestRow) {
    std::vector<unsigned char> pixels(10 * 4096);
    unsigned char* firstOnScreen = pixels.data() + 9 * 4096;
    for (const bool flipped : {false, true}) {
        const FrameParams params{firstOnScreen,    1024,   10, -4096, 4, 0, 0,
                                 PixelFormatBGRA8, flipped};
        CFrame frame;
        ASSERT_TRUE(frame.Init(&params));
        EXPECT_EQ(frame.m_pBuffer, pixels.data());
        EXPECT_EQ(frame.m_nByteSpan, 4096);
        EXPECT_EQ(frame.m_nPixelSpan, 1024);
        EXPECT_EQ(frame.m_bFlipped, !flipped);
        const FrameParams back = frame.GetFrameParams();
        EXPECT_EQ(back.pBuffer, pixels.data());
        EXPECT_EQ(back.nByteSpan, 4096);
        EXPECT_EQ(back.bFlipped, !flipped);
        EXPECT_EQ(back.nReserved0, 0);
    }
}

TEST(Frame, WrappingOwnsNothingAndForgetsEverything) {
    unsigned char pixels[64];
    CFrame frame;
    EXPECT_FALSE(frame.Init(static_cast<const FrameParams*>(nullptr)));
    ASSERT_TRUE(frame.Init(pixels, 4, 4, 16, 4, PixelFormatARGB8, true));
    frame.Clear();  // a frame that freed `pixels` would not survive this
    EXPECT_EQ(frame.m_pBuffer, nullptr);
    EXPECT_EQ(frame.m_nWidth, 0);
    EXPECT_EQ(frame.m_pfPixelFormat, PixelFormatBGRA8);
    // Extremes of a host's record are taken as they come, without overflow.
    ASSERT_TRUE(frame.Init(nullptr, INT_MAX, INT_MAX, INT_MIN, -1, PixelFormatBGRA8, false));
    ASSERT_TRUE(frame.Init(pixels, 1, 1, 16, 0, PixelFormatBGRA8, false));
    EXPECT_EQ(frame.m_nPixelSpan, 0);
}

TEST(Frame, BitmapsAreWrappedByTheirHeader) {
    unsigned char pixels[48];
    tagBITMAPINFOHEADER header{};
    header.biWidth = 4;
    header.biHeight = -3;
    header.biBitCount = 32;
    CFrame frame;
    ASSERT_TRUE(frame.Init(&header, pixels));
    EXPECT_EQ(frame.m_nHeight, 3);
    EXPECT_EQ(frame.m_nByteSpan, 16);
    EXPECT_TRUE(frame.m_bFlipped);
}

TEST(Frame, AllocationFollowsTheDepth) {
    CFrame frame;
    ASSERT_TRUE(frame.Init(7, 5, 1, nullptr, PixelFormatBGRA8, false));
    EXPECT_EQ(frame.m_pfPixelFormat, PixelFormatMono8);
    ASSERT_TRUE(frame.Init(7, 5, 16, nullptr, PixelFormatARGB32f, true));
    EXPECT_GE(frame.m_nByteSpan, 7 * 16);
    EXPECT_EQ(frame.m_nPixelSpan, frame.m_nByteSpan / 16);
    EXPECT_EQ(frame.m_pMemoryAllocator, nullptr);
    for (const int depth : {5, 0, -4}) {
        EXPECT_FALSE(frame.Init(7, 5, depth, nullptr, PixelFormatBGRA8, false));
        EXPECT_EQ(frame.m_pBuffer, nullptr);
    }
    EXPECT_FALSE(frame.Init(INT_MAX, INT_MAX, 16, nullptr, PixelFormatBGRA32f, false));
}

TEST(Frame, HostMemoryGoesBackToTheHost) {
    testing::CountingAllocator lender;
    testing::TestHost host(&lender);
    {
        MemoryAllocator allocator(&host);
        EXPECT_EQ(lender.references, 2);
        CFrame frame;
        ASSERT_TRUE(frame.Init(9, 3, 4, &allocator, PixelFormatBGRA8, false));
        EXPECT_EQ(frame.m_nByteSpan, 128);
        ASSERT_TRUE(frame.Init(2, 2, 4, &allocator, PixelFormatBGRA8, false));
        EXPECT_EQ(lender.out, 1);
        lender.refuseAfter = 0;
        EXPECT_FALSE(frame.Init(2, 2, 4, &allocator, PixelFormatBGRA8, false));
    }
    EXPECT_EQ(lender.out, 0);
    EXPECT_EQ(lender.references, 1);
}

TEST(Frame, ViewsShareThePixelsButNotTheFlag) {
    CFrame parent, view, empty;
    ASSERT_TRUE(parent.Init(8, 8, 4, nullptr, PixelFormatARGB8, true));
    ASSERT_TRUE(view.Init(&parent, 2, 3, 4, 2, false));
    EXPECT_EQ(view.m_pBuffer, parent.m_pBuffer + 3 * parent.m_nByteSpan + 2 * 4);
    EXPECT_EQ(view.m_nByteSpan, parent.m_nByteSpan);
    EXPECT_EQ(view.m_pfPixelFormat, PixelFormatARGB8);
    EXPECT_FALSE(view.m_bFlipped);
    ASSERT_TRUE(view.Init(&empty, 2, 3, 4, 2, false));
    EXPECT_EQ(view.m_pBuffer, nullptr);
}

TEST(ArtFrame, ServesOneToFourChannelsOfBytesAndWords) {
    CArtFrame frame;
    for (int bytes = 1; bytes <= 2; ++bytes)
        for (int channels = 1; channels <= 4; ++channels) {
            ASSERT_TRUE(frame.Init(5, 3, channels, bytes));
            EXPECT_EQ(frame.m_nPixelSpan, frame.m_nByteSpan / (channels * bytes));
            EXPECT_EQ(frame.m_rcActive.right, 5);
            EXPECT_EQ(frame.m_rcActive.bottom, 3);
        }
    for (const auto& [channels, bytes] : {std::pair{4, 4}, {5, 1}, {0, 2}}) {
        EXPECT_FALSE(frame.Init(5, 3, channels, bytes));
        EXPECT_EQ(frame.m_pBuffer, nullptr);
    }
}

}  // namespace
}  // namespace brushworks
