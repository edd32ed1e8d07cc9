// The triangle blur of frames against sums over taps, and its quirks.
#include "processors/blur.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "frames/memory_allocator.h"
#include "frames/testing_host.h"
#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::kAllFormats;
using testing::RandomFrame;
using testing::SamePixels;
using testing::SampleAt;
using testing::SamplesPerPixel;

/// The samples of a region, worked on one axis at a time.
class Picture {
  public:
    Picture(const CFrame& frame, int w, int h)
        : width(w),
          height(h),
          channels(SamplesPerPixel(frame)),
          bytes(!Processors::IsFloatColor(frame) && !Processors::IsFloatPlane(frame)) {
        for (int y = 0; y < h; ++y)
            for (int i = 0; i < w * channels; ++i) samples.push_back(SampleAt(frame, y, i));
    }
    float at(int x, int y, int c) const {
        return samples[(static_cast<std::size_t>(y) * width + x) * channels + c];
    }
    /// One pass; the outermost two pixels count as repeats of the third before and after it.
    Picture Blurred(int taps, bool across) const {
        const auto inner = [](int place, int length) {
            const int margin = std::min(2, (length - 1) / 2);
            return std::clamp(place, margin, length - 1 - margin);
        };
        Picture result = *this;
        result.samples.clear();
        int divisor = 0;
        for (int i = 0; i < taps; ++i) divisor += std::min(i + 1, taps - i);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                for (int c = 0; c < channels; ++c) {
                    float floats = 0.0f;
                    int whole = 0;
                    for (int i = 0; i < taps; ++i) {
                        const int offset = i - (taps - 1 - taps / 2);
                        const int sx = across ? x + offset : x;
                        const int sy = across ? inner(y, height) : inner(y, height) + offset;
                        const float p = at(inner(sx, width), inner(sy, height), c);
                        const int weight = std::min(i + 1, taps - i);
                        floats += static_cast<float>(weight) / static_cast<float>(divisor) * p;
                        whole += weight * static_cast<int>(p);
                    }
                    result.samples.push_back(
                        bytes ? std::nearbyint(static_cast<float>(whole) *
                                               (1.0f / static_cast<float>(divisor)))
                              : floats);
                }
        return result;
    }

    int width, height, channels;
    bool bytes;
    std::vector<float> samples;
};

/// Blurs and compares; the picture is expected at (`left`, `top`) of a destination.
void ExpectBlur(PixelFormat format, IppiSize srcSize, IppiSize dstSize, int u, int v, int left = 0,
                int top = 0) {
    RandomFrame src(srcSize.width, srcSize.height, format, 1),
        dst(dstSize.width, dstSize.height, format, 2),
        before(dstSize.width, dstSize.height, format, 2);
    const IppiSize region = Processors::CommonSize(src, dst);
    SCOPED_TRACE(::testing::Message() << "format " << format << ", " << region.width << " x "
                                      << region.height << " by " << u << " x " << v);
    ASSERT_TRUE(Processors::CBlur().Process(&src, &dst, u + 0.9f, v + 0.1f, nullptr, true));
    const Picture expected =
        Picture(src, region.width, region.height).Blurred(v, false).Blurred(u, true);
    const int n = SamplesPerPixel(src);
    for (int y = 0; y < dst.m_nHeight; ++y)
        for (int i = 0; i < dst.m_nWidth * n; ++i) {
            const int x = i / n - left, row = y - top;
            const bool inside = x >= 0 && x < region.width && row >= 0 && row < region.height;
            ASSERT_EQ(SampleAt(dst, y, i),
                      inside ? expected.at(x, row, i % n) : SampleAt(before, y, i))
                << x << ", " << row;
        }
}

TEST(Blur, MatchesSumsOverTapsInAllFormats) {
    for (const PixelFormat format : kAllFormats) {
        ExpectBlur(format, {37, 21}, {37, 21}, 8, 5);
        ExpectBlur(format, {37, 21}, {37, 21}, 1, 3);
        ExpectBlur(format, {37, 21}, {31, 19}, 5, 8);
        ExpectBlur(format, {19, 23}, {19, 23}, 90, 71);
        for (const int side : {1, 2, 3, 4, 5})
            ExpectBlur(format, {side, 6 - side}, {side, 6 - side}, 3, 4);
    }
}

TEST(Blur, ALargerDestinationTakesThePictureInItsMiddle) {
    for (const PixelFormat format : kAllFormats) {
        ExpectBlur(format, {37, 21}, {60, 50}, 6, 4, 3 + (60 - 37 - 6) / 2, 2);
        ExpectBlur(format, {37, 21}, {42, 24}, 6, 4);  // no room to spare
    }
}

TEST(Blur, WidthsBelowOneCopyAndAboveAThousandAreCut) {
    for (const PixelFormat format : kAllFormats) {
        RandomFrame src(9, 8, format, 1), dst(9, 8, format, 2), cut(9, 8, format, 3);
        for (const float none : {0.5f, -3.0f, std::numeric_limits<float>::quiet_NaN(),
                                 -std::numeric_limits<float>::infinity()}) {
            testing::Randomize(dst, 2);
            ASSERT_TRUE(Processors::CBlur().Process(&src, &dst, 5.0f, none, nullptr, true));
            ASSERT_TRUE(SamePixels(dst, src));
        }
        ASSERT_TRUE(Processors::CBlur().Process(&src, &dst, 2000.0f, 3.0f, nullptr, true));
        ASSERT_TRUE(Processors::CBlur().Process(&src, &cut, 1000.0f, 3.0f, nullptr, true));
        EXPECT_TRUE(SamePixels(dst, cut));
        ASSERT_TRUE(Processors::CBlur().Process(&src, &dst, std::numeric_limits<float>::infinity(),
                                                3.0f, nullptr, true));
        EXPECT_TRUE(SamePixels(dst, cut));
    }
}

TEST(Blur, OneFrameServesAsBoth) {
    for (const PixelFormat format : kAllFormats)
        for (const bool allChannels : {false, true}) {
            RandomFrame src(21, 18, format, 1), dst(21, 18, format, 1), same(21, 18, format, 1);
            ASSERT_TRUE(Processors::CBlur().Process(&src, &dst, 7, 6, nullptr, allChannels));
            ASSERT_TRUE(Processors::CBlur().Process(&same, &same, 7, 6, nullptr, allChannels));
            EXPECT_TRUE(SamePixels(dst, same)) << format;
        }
}

TEST(Blur, AlphaStaysUnlessAllChannelsAreAsked) {
    for (const PixelFormat format : testing::kColorFormats) {
        RandomFrame src(21, 18, format, 1), dst(21, 18, format, 2), all(21, 18, format, 3);
        ASSERT_TRUE(Processors::CBlur().Process(&src, &dst, 7, 6, nullptr, false));
        ASSERT_TRUE(Processors::CBlur().Process(&src, &all, 7, 6, nullptr, true));
        const int alpha = Processors::AlphaPlane(src);
        for (int y = 0; y < 18; ++y)
            for (int i = 0; i < 4 * 21; ++i)
                ASSERT_EQ(SampleAt(dst, y, i), SampleAt(i % 4 == alpha ? src : all, y, i));
    }
}

TEST(Blur, TurnsAlphaFirstIntoAlphaLast) {
    for (const bool floats : {false, true}) {
        const PixelFormat from = floats ? PixelFormatARGB32f : PixelFormatARGB8;
        const PixelFormat to = floats ? PixelFormatBGRA32f : PixelFormatBGRA8;
        RandomFrame src(21, 18, from, 1), dst(21, 18, to, 2), plain(21, 18, from, 3),
            colours(21, 18, to, 4), before(21, 18, to, 4);
        ASSERT_TRUE(Processors::CBlur().Process(&src, &plain, 7, 6, nullptr, true));
        ASSERT_TRUE(Processors::CBlur().Process(&src, &dst, 7, 6, nullptr, true));
        ASSERT_TRUE(Processors::CBlur().Process(&src, &colours, 7, 6, nullptr, false));
        for (int y = 0; y < 18; ++y)
            for (int i = 0; i < 4 * 21; ++i) {
                const int mirrored = i / 4 * 4 + 3 - i % 4;
                ASSERT_EQ(SampleAt(dst, y, i), SampleAt(plain, y, mirrored));
                // Alpha is copied from plane 0 to plane 0, in a frame where that one is blue.
                const float expected = i % 4 == 0   ? SampleAt(src, y, i)
                                       : i % 4 == 3 ? SampleAt(before, y, i)
                                                    : SampleAt(plain, y, mirrored);
                ASSERT_EQ(SampleAt(colours, y, i), expected);
            }
    }
}

TEST(Blur, KeepsWhereAlphaWouldBeInAFrameThatHasItElsewhere) {
    for (const bool floats : {false, true}) {
        const PixelFormat from = floats ? PixelFormatBGRA32f : PixelFormatBGRA8;
        const PixelFormat to = floats ? PixelFormatARGB32f : PixelFormatARGB8;
        RandomFrame src(21, 18, from, 1), dst(21, 18, to, 2), all(21, 18, from, 3);
        ASSERT_TRUE(Processors::CBlur().Process(&src, &all, 7, 6, nullptr, true));
        ASSERT_TRUE(Processors::CBlur().Process(&src, &dst, 7, 6, nullptr, false));
        for (int y = 0; y < 18; ++y)
            for (int i = 0; i < 4 * 21; ++i) {
                // Plane 0 comes unblurred from the widened copy's corner, plane 3 from the source.
                const int x = std::clamp(i / 4 - 3, 2, 18);
                const float expected = i % 4 == 0   ? SampleAt(src, std::clamp(y - 3, 2, 15), 4 * x)
                                       : i % 4 == 3 ? SampleAt(src, y, i)
                                                    : SampleAt(all, y, i);
                ASSERT_EQ(SampleAt(dst, y, i), expected);
            }
    }
}

TEST(Blur, RefusesWithoutMemoryAndGivesAllBack) {
    for (const PixelFormat format : kAllFormats)
        for (int pieces = 0; pieces < 4; ++pieces) {
            testing::CountingAllocator lender;
            lender.refuseAfter = pieces;
            testing::TestHost host(&lender);
            RandomFrame src(21, 18, format, 1);
            bool done;
            {
                MemoryAllocator allocator(&host);
                done = Processors::CBlur().Process(&src, &src, 7, 6, &allocator, false);
            }
            const bool floats = Processors::IsFloatColor(src) || Processors::IsFloatPlane(src);
            EXPECT_EQ(done, pieces >= (floats ? 3 : 2));
            EXPECT_EQ(lender.out, 0);
        }
    RandomFrame color(4, 4, PixelFormatBGRA8, 1), plane(4, 4, PixelFormatMono8, 1);
    CFrame empty;
    EXPECT_FALSE(Processors::CBlur().Process(&color, &plane, 3, 3, nullptr, true));
    empty.m_nDepth = 4;
    EXPECT_FALSE(Processors::CBlur().Process(&empty, &color, 3, 3, nullptr, true));
    color.m_pfPixelFormat = static_cast<PixelFormat>(5);
    EXPECT_FALSE(Processors::CBlur().Process(&color, &color, 3, 3, nullptr, true));
}

}  // namespace
}  // namespace brushworks
