// The older family of frame operations: kernels, borders, grays, edges, medians.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <numeric>
#include <vector>

#include "frames/memory_allocator.h"
#include "processors/canvaskit/contrast.h"
#include "processors/canvaskit/edge.h"
#include "processors/canvaskit/fill_border.h"
#include "processors/canvaskit/gaussian.h"
#include "processors/canvaskit/gray.h"
#include "processors/canvaskit/median.h"
#include "processors/canvaskit/sharpen.h"
#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::RandomFrame;
using testing::SamePixels;
using testing::SampleAt;

/// The sample at a pixel, or at the nearest one of the frame.
float Nearest(const CFrame& frame, int x, int y, int c) {
    return SampleAt(frame, std::clamp(y, 0, frame.m_nHeight - 1),
                    std::clamp(x, 0, frame.m_nWidth - 1) * frame.m_nDepth + c);
}

/// The sum under a symmetric kernel, rounded; a step beside what is given for sums next to a tie.
void ExpectFiltered(const CFrame& src, const CFrame& dst, const float* kernel, IppiSize size,
                    IppiPoint first, int channels, bool loose) {
    for (int y = 0; y < dst.m_nHeight; ++y)
        for (int x = 0; x < dst.m_nWidth; ++x)
            for (int c = 0; c < channels; ++c) {
                float sum = 0.0f;
                const int count = size.width * size.height;
                for (int j = 0; j < count; ++j)
                    sum += kernel[count - 1 - j] * Nearest(src, x + first.x + j % size.width,
                                                           y + first.y + j / size.width, c);
                const float expected = std::nearbyint(std::clamp(sum, 0.0f, 255.0f));
                const float got = SampleAt(dst, y, x * dst.m_nDepth + c);
                const bool nearTie = loose && std::fabs(sum - std::floor(sum) - 0.5f) < 1e-3f;
                ASSERT_LE(std::fabs(got - expected), nearTie ? 1.0f : 0.0f)
                    << x << ", " << y << ": " << sum;
            }
}

TEST(Guassian, BuildsItsKernel) {
    Canvaskit::CGuassian gaussian;
    float* built = nullptr;
    int width = 0, height = 0;
    ASSERT_TRUE(gaussian.BuildKernel(1.0f, false, built, width, height));
    std::unique_ptr<float[]> kernel(built);
    EXPECT_EQ(width, 11);
    EXPECT_EQ(height, 11);
    EXPECT_EQ(kernel[60], 1.0f);
    EXPECT_EQ(kernel[59], std::exp(-0.5f));
    EXPECT_GT(std::accumulate(&kernel[0], &kernel[121], 0.0f), 6.0f) << "not normalised";

    ASSERT_TRUE(gaussian.BuildKernel(1.0f, true, built, width, height));
    kernel.reset(built);
    EXPECT_EQ(width, 11);
    EXPECT_EQ(height, 5);
    EXPECT_EQ(kernel[27], 1.0f);
    EXPECT_EQ(kernel[16], std::exp(-2.0f)) << "heights count double";

    for (const float sigma : {0.0f, 1e-30f, std::numeric_limits<float>::quiet_NaN()}) {
        ASSERT_TRUE(gaussian.BuildKernel(sigma, true, built, width, height));
        kernel.reset(built);
        EXPECT_EQ(width, 5);
        EXPECT_EQ(height, 3);
    }
    EXPECT_FALSE(
        gaussian.BuildKernel(std::numeric_limits<float>::infinity(), false, built, width, height));
}

TEST(Guassian, BlursBrightensAndTakesOneFrameAsBoth) {
    for (const int depth : {1, 3, 4}) {
        CFrame src, dst;
        ASSERT_TRUE(src.Init(23, 14, depth, nullptr, PixelFormatBGRA8, false));
        ASSERT_TRUE(dst.Init(23, 14, depth, nullptr, PixelFormatBGRA8, false));
        testing::Randomize(src, 1);
        for (int y = 0; y < 14; ++y)
            for (int i = 0; i < 23 * depth; ++i) Processors::RowOf<unsigned char>(src, y)[i] /= 8;
        float* built = nullptr;
        IppiSize size;
        Canvaskit::CGuassian gaussian;
        ASSERT_TRUE(gaussian.BuildKernel(0.8f, true, built, size.width, size.height));
        const std::unique_ptr<float[]> kernel(built);
        ASSERT_TRUE(gaussian.Process(src, dst, 0.8f, true, nullptr));
        ExpectFiltered(src, dst, built, size, {-(size.width / 2), -(size.height / 2)}, depth, true);
        ASSERT_TRUE(gaussian.Process(src, src, 0.8f, true, nullptr));
        EXPECT_TRUE(SamePixels(src, dst));
    }
    RandomFrame plane(4, 4, PixelFormatMono8, 1), color(4, 4, PixelFormatBGRA8, 1),
        floats(4, 4, PixelFormatBGRA32f, 1);
    EXPECT_FALSE(Canvaskit::CGuassian().Process(plane, color, 1, false, nullptr));
    EXPECT_FALSE(Canvaskit::CGuassian().Process(floats, floats, 1, false, nullptr));
}

TEST(Edge, StandsOutFromItsNeighbours) {
    for (const int size : {1, 3, 4, 5}) {
        RandomFrame src(19, 13, PixelFormatMono8, 1), dst(19, 13, PixelFormatMono8, 2);
        float* built = nullptr;
        ASSERT_TRUE(Canvaskit::CEdge().BuildKernel(size, built));
        const std::unique_ptr<float[]> kernel(built);
        EXPECT_EQ(std::accumulate(built, built + size * size, 0.0f), 0.0f);
        EXPECT_EQ(built[size * size / 2], static_cast<float>(size * size - 1));
        ASSERT_TRUE(Canvaskit::CEdge().Process(src, dst, size));
        ExpectFiltered(src, dst, built, {size, size}, {-(size / 2), -(size / 2)}, 1, false);
    }
    RandomFrame color(4, 4, PixelFormatBGRA8, 1), plane(4, 4, PixelFormatMono8, 1);
    float* built = nullptr;
    EXPECT_FALSE(Canvaskit::CEdge().Process(color, plane, 3));
    EXPECT_FALSE(Canvaskit::CEdge().Process(plane, plane, 0));
    EXPECT_FALSE(Canvaskit::CEdge().BuildKernel(std::numeric_limits<int>::max(), built));
}

TEST(CanvaskitFillBorder, FillsAndReportsTheOpposite) {
    for (const PixelFormat format : {PixelFormatARGB8, PixelFormatMono8}) {
        RandomFrame src(5, 4, format, 1);
        CFrame dst;
        EXPECT_FALSE(Canvaskit::CFillBorder().Process(src, dst, 3, 2, nullptr));
        ASSERT_EQ(dst.m_nWidth, 11);
        ASSERT_EQ(dst.m_nHeight, 8);
        for (int y = 0; y < 8; ++y)
            for (int i = 0; i < 11 * src.m_nDepth; ++i)
                ASSERT_EQ(Processors::RowOf<unsigned char>(dst, y)[i],
                          Nearest(src, i / src.m_nDepth - 3, y - 2, i % src.m_nDepth));
        EXPECT_EQ(dst.m_pfPixelFormat, format == PixelFormatMono8 ? format : PixelFormatBGRA8);
        EXPECT_TRUE(Canvaskit::CFillBorder().Process(src, src, 1, nullptr));
        EXPECT_TRUE(Canvaskit::CFillBorder().Process(src, dst, -1, nullptr));
        EXPECT_TRUE(Canvaskit::CFillBorder().Process(src, dst, 1 << 30, nullptr));
    }
    RandomFrame floats(4, 4, PixelFormatBGRA32f, 1);
    CFrame dst;
    EXPECT_TRUE(Canvaskit::CFillBorder().Process(floats, dst, 1, nullptr));
}

TEST(Gray, GoesThereAndBack) {
    RandomFrame plane(9, 7, PixelFormatMono8, 1), back(12, 5, PixelFormatMono8, 2);
    for (const int depth : {3, 4}) {
        CFrame color;
        ASSERT_TRUE(color.Init(10, 6, depth, nullptr, PixelFormatBGRA8, false));
        testing::Randomize(color, 3);
        ASSERT_TRUE(Canvaskit::CGrayToRGB().Process(plane, color));
        if (depth == 4) {
            EXPECT_EQ(SampleAt(color, 2, 4 * 8 + 3), 255.0f);
        }
        ASSERT_TRUE(Canvaskit::CRGBToGray().Process(color, back));
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 9; ++x) ASSERT_EQ(SampleAt(back, y, x), SampleAt(plane, y, x));
        EXPECT_FALSE(Canvaskit::CGrayToRGB().Process(color, color));
        EXPECT_FALSE(Canvaskit::CRGBToGray().Process(color, color));
    }
    EXPECT_FALSE(Canvaskit::CGrayToRGB().Process(plane, plane));
    EXPECT_FALSE(Canvaskit::CRGBToGray().Process(plane, plane));
    RandomFrame negative(9, 7, PixelFormatMono8, 1);
    ASSERT_TRUE(Canvaskit::CNegate().Process(negative));
    EXPECT_EQ(SampleAt(negative, 6, 8), 255.0f - SampleAt(plane, 6, 8));
}

TEST(Median, LeavesAlphaAloneWhereItComesLast) {
    for (const PixelFormat format : {PixelFormatBGRA8, PixelFormatARGB8}) {
        RandomFrame src(13, 9, format, 1), before(13, 9, format, 1);
        ASSERT_TRUE(Canvaskit::CMedian().Process(src, 2, 1));
        for (int y = 0; y < 9; ++y)
            for (int i = 0; i < 13 * 4; ++i) {
                std::vector<float> window;
                for (int dy = -1; dy <= 1; ++dy)
                    for (int dx = -2; dx <= 2; ++dx)
                        window.push_back(Nearest(before, i / 4 + dx, y + dy, i % 4));
                std::sort(window.begin(), window.end());
                const bool kept = format == PixelFormatBGRA8 && i % 4 == 3;
                ASSERT_EQ(SampleAt(src, y, i), kept ? SampleAt(before, y, i) : window[7]);
            }
    }
    RandomFrame floats(5, 5, PixelFormatBGRA32f, 1), copy(5, 5, PixelFormatBGRA32f, 2),
        bytes(5, 5, PixelFormatBGRA8, 1), same(5, 5, PixelFormatBGRA8, 1);
    EXPECT_TRUE(Canvaskit::CMedian().Process(floats, copy, 1, 1));
    EXPECT_TRUE(SamePixels(floats, copy));
    EXPECT_TRUE(Canvaskit::CMedian().Process(bytes, 0, 0));
    EXPECT_TRUE(SamePixels(bytes, same));
    EXPECT_FALSE(Canvaskit::CMedian().Process(bytes, -1, 0));
    EXPECT_FALSE(Canvaskit::CMedian().Process(bytes, 1 << 30, 1 << 30));
}

TEST(Sharpen, TakesAnEighthOfEachNeighbourAway) {
    float kernel[9] = {-0.125f, -0.125f, -0.125f, -0.125f, 2.0f,
                       -0.125f, -0.125f, -0.125f, -0.125f};
    RandomFrame src(13, 9, PixelFormatBGRA8, 1), dst(13, 9, PixelFormatBGRA8, 2);
    ASSERT_TRUE(Canvaskit::CSharpen().Process(src, dst));
    ExpectFiltered(src, dst, kernel, {3, 3}, {-1, -1}, 3, false);
    RandomFrame plane(5, 5, PixelFormatMono8, 1), before(5, 5, PixelFormatMono8, 1);
    EXPECT_TRUE(Canvaskit::CSharpen().Process(plane));
    EXPECT_TRUE(SamePixels(plane, before));
}

TEST(Contrast, SumsToOne) {
    float kernel[49];
    ASSERT_EQ(CContrast().fillCore(kernel, 3, 1.0), 0);
    EXPECT_FLOAT_EQ(kernel[1], -1.0f / 6);
    EXPECT_FLOAT_EQ(kernel[0], -1.0f / 12);
    EXPECT_EQ(kernel[4], 2.0f);
    for (const int size : {3, 5, 7}) {
        CContrast().fillCore(kernel, size, 2.5);
        EXPECT_NEAR(std::accumulate(kernel, kernel + size * size, 0.0), 1.0, 1e-5);
    }
    CContrast().fillCore(kernel, 1, 2.5);
    EXPECT_EQ(kernel[0], 3.5f);
    EXPECT_EQ(CContrast().fillCore(nullptr, 3, 1.0), 0);
}

}  // namespace
}  // namespace brushworks
