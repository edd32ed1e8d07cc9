// Dilation under an ellipse against a search for the largest sample.
#include "processors/dilate_ellipse.h"

#include <algorithm>
#include <limits>

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

void ExpectDilation(PixelFormat format, int width, int height) {
    RandomFrame src(17, 11, format, 1), dst(17, 11, format, 2);
    ASSERT_TRUE(Processors::CDilateEllipse().Process(&src, &dst, width, height, nullptr));
    const int n = SamplesPerPixel(src), hx = width / 2, hy = height / 2;
    for (int y = 0; y < 11; ++y)
        for (int i = 0; i < 17 * n; ++i) {
            float largest = -1.0f;
            for (int dy = -hy; dy < height - hy; ++dy)
                for (int dx = -hx; dx < width - hx; ++dx) {
                    // Whole numbers: dx^2 / hx^2 + dy^2 / hy^2 at most 1.
                    if (dx * dx * hy * hy + dy * dy * hx * hx > hx * hx * hy * hy) continue;
                    largest =
                        std::max(largest, SampleAt(src, std::clamp(y + dy, 0, 10),
                                                   std::clamp(i / n + dx, 0, 16) * n + i % n));
                }
            ASSERT_EQ(SampleAt(dst, y, i), largest)
                << format << ", " << width << " x " << height << " at " << i / n << ", " << y;
        }
}

TEST(DilateEllipse, FindsTheLargestSampleUnderIt) {
    for (const PixelFormat format : kAllFormats) {
        ExpectDilation(format, 1, 1);
        ExpectDilation(format, 7, 5);
        ExpectDilation(format, 4, 6);
        ExpectDilation(format, 1, 5);
        ExpectDilation(format, 40, 3);
    }
}

TEST(DilateEllipse, RefusesMasksThatCannotBe) {
    RandomFrame src(4, 4, PixelFormatBGRA8, 1), dst(4, 4, PixelFormatBGRA8, 2),
        before(4, 4, PixelFormatBGRA8, 2), plane(4, 4, PixelFormatMono8, 1);
    Processors::CDilateEllipse dilate;
    EXPECT_FALSE(dilate.Process(&src, &dst, 0, 3, nullptr));
    EXPECT_FALSE(dilate.Process(&src, &dst, -3, -3, nullptr));
    EXPECT_FALSE(dilate.Process(&src, &plane, 3, 3, nullptr));
    testing::CountingAllocator refusing;
    refusing.refuseAfter = 0;
    testing::TestHost host(&refusing);
    MemoryAllocator allocator(&host);
    EXPECT_FALSE(dilate.Process(&src, &dst, 3, 3, &allocator));
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    // No memory is as large; the sanitizers end the program where it is asked for.
    constexpr int kMost = std::numeric_limits<int>::max();
    EXPECT_FALSE(dilate.Process(&src, &dst, kMost, kMost, nullptr));
#endif
    EXPECT_TRUE(SamePixels(dst, before));
    src.m_pfPixelFormat = static_cast<PixelFormat>(2);
    EXPECT_TRUE(dilate.Process(&src, &dst, 3, 3, nullptr)) << "no dilation serves it";
    EXPECT_TRUE(SamePixels(dst, before));
}

}  // namespace
}  // namespace brushworks
