// Convolutions, against plain sums and the filter for frames.
#include <functional>

#include "drawing.h"
#include "frames/frame.h"
#include "gpu/processors/dilate_ellipse_fast.h"
#include "gpu/processors/filter.h"
#include "gpu/processors/filter_3x3.h"
#include "gpu/processors/histogram.h"
#include "gpu/processors/median.h"
#include "gpu/processors/segment_tree.h"
#include "processors/filter.h"

namespace brushworks::GPUProcessors {
namespace {

using namespace brushworks::testing;
using host::gl::alike;
using host::gl::testPicture;

class GPUFilterTest : public DrawingTest {};

constexpr PixelFormat kFormats[] = {PixelFormatBGRA8, PixelFormatARGB8, PixelFormatBGRA32f,
                                    PixelFormatARGB32f};

struct Kernel {
    int width, height, anchorX, anchorY;
    std::vector<float> cells;

    /// No two cells alike, a fifth of them negative.
    Kernel(int w, int h, int ax, int ay) : width(w), height(h), anchorX(ax), anchorY(ay) {
        for (int i = 0; i < w * h; ++i)
            cells.push_back((i % 5 == 1 ? -1.0f : 1.0f) * static_cast<float>(1 + i * 7 % 11) /
                            static_cast<float>(3 * w * h));
    }
    Picture Filter(Picture& source, PixelFormat target) const {
        return Paint(source.width, source.height, target, [&](int x, int y) {
            Color sum = {};
            for (int j = 0; j < height; ++j)
                for (int i = 0; i < width; ++i) {
                    const Color texel =
                        Pixel(source, std::clamp(x + i - anchorX, 0, source.width - 1),
                              std::clamp(y + j - anchorY, 0, source.height - 1));
                    for (int c = 0; c < 4; ++c) sum[c] += texel[c] * cells[j * width + i];
                }
            return sum;
        });
    }
};

TEST_F(GPUFilterTest, SumsUnderKernelsOfAllShapes) {
    const Kernel kernels[] = {{3, 3, 1, 1},   {5, 5, 2, 2}, {19, 19, 9, 9}, {19, 1, 4, 0},
                              {1, 19, 0, 18}, {4, 2, 3, 1}, {1, 1, 0, 0}};
    constexpr int kSizes[][2] = {{23, 14}, {1, 6}, {7, 1}};
    for (const auto& [width, height] : kSizes)
        for (PixelFormat format : kFormats) {
            Picture picture = testPicture(width, height, format);
            Texture source(picture), target(width, height, format);
            for (Kernel kernel : kernels) {
                SCOPED_TRACE(::testing::Message() << kernel.width << " x " << kernel.height << ' '
                                                  << format << ' ' << width);
                ASSERT_TRUE(CFilter(&helper).Process(source, target, kernel.width, kernel.height,
                                                     kernel.cells.data(), kernel.anchorX,
                                                     kernel.anchorY));
                Picture expected = kernel.Filter(picture, format);
                const double allowed = IsFloat(format) ? 0.01 : 1;
                EXPECT_TRUE(alike(target.Read().frame(), expected.frame(), {.largest = allowed}));
            }
        }
}

TEST_F(GPUFilterTest, NineCellsAgreeInBothLayoutsAndWithFrames) {
    const Kernel kernel(3, 3, 1, 1);
    std::vector<float> rows = kernel.cells, columns, reversed(rows.rbegin(), rows.rend());
    for (int i = 0; i < 9; ++i) columns.push_back(rows[i % 3 * 3 + i / 3]);
    for (PixelFormat format : kFormats) {
        SCOPED_TRACE(format);
        Picture picture = testPicture(23, 14, format), expected = kernel.Filter(picture, format);
        Texture source(picture), target(23, 14, format);
        const host::gl::Tolerance tolerance = {.largest = IsFloat(format) ? 0.01 : 1};
        ASSERT_TRUE(CFilter3x3(&helper).Process(source, target, rows.data(), false));
        EXPECT_TRUE(alike(target.Read().frame(), expected.frame(), tolerance));
        ASSERT_TRUE(CFilter3x3(&helper).Process(source, target, columns.data(), true));
        EXPECT_TRUE(alike(target.Read().frame(), expected.frame(), tolerance));

        // Frames lose the border and walk the kernel in reverse.
        Picture inner = target.Read();
        const FrameParams from = picture.frame(), to = inner.frame();
        CFrame src, dst;
        src.Init(&from);
        dst.Init(&to);
        ASSERT_TRUE(Processors::CFilter().Process(&src, &dst, reversed.data(), 3, false));
        EXPECT_TRUE(alike(inner.frame(), expected.frame(), tolerance));
    }
}

TEST_F(GPUFilterTest, RefusesAnchorsOutsideTheKernel) {
    Texture a(4, 3, PixelFormatBGRA8), b(4, 3, PixelFormatBGRA8);
    float kernel[6] = {};
    EXPECT_TRUE(CFilter(&helper).Process(a, b, 3, 2, kernel, 2, 1));
    EXPECT_FALSE(CFilter(&helper).Process(a, b, 3, 2, kernel, 3, 1));
    EXPECT_FALSE(CFilter(&helper).Process(a, b, 3, 2, kernel, 0, 2));
    EXPECT_FALSE(CFilter(&helper).Process(a, b, 3, 2, kernel, -1, 0));
    EXPECT_FALSE(CFilter(&helper).Process(a, b, 3, 2, nullptr, 0, 0));
}

TEST_F(GPUFilterTest, OperationsOfManyPassesFailAndFreeEverythingWhereTheHostRefuses) {
    Texture a(60, 50, PixelFormatARGB8), b(60, 50, PixelFormatARGB8), c(16, 1, PixelFormatBGRA32f);
    Texture table(60, 50, PixelFormatARGB32f);
    float kernel[35] = {};
    const std::function<bool()> operations[] = {
        [&] { return CFilter(&helper).Process(a, b, 7, 5, kernel, 3, 2); },
        [&] { return CFilter3x3(&helper).Process(a, b, kernel, false); },
        [&] { return CHistogram(&helper).ProcessGPU(a, c, CHistogram::kRed, 16); },
        [&] { return CSegmentTree(&helper).Process(a, table); },
        [&] {
            return CDilateEllipseFast(&helper).Process(a, b, 6, false, false, true, nullptr,
                                                       nullptr);
        },
        [&] {
            return CDilateEllipseFast(&helper).ProcessResize(a, b, 30, false, false, true, nullptr,
                                                             nullptr);
        },
        [&] { return CFilter(&helper).IsSupported() && CFilter3x3(&helper).IsSupported(); },
        [&] { return CHistogram(&helper).IsSupportedGPU() && CMedian(&helper).IsSupported(); },
        [&] {
            return CSegmentTree(&helper).IsSupported() && CDilateEllipseFast(&helper).IsSupported();
        },
    };
    for (const auto& operation : operations) {
        bool refused = true;
        for (int request = 0; refused; ++request) {
            const auto host = host::gl::RefusingHostGL::create(hostGL(), request);
            Begin(*host);
            const std::uint64_t mark = hostGL().mark();
            const bool done = operation();
            refused = host->refused();
            EXPECT_EQ(done, !refused) << request;
            EXPECT_TRUE(hostGL().aliveSince(mark).empty());
            Begin(hostGL());
        }
    }
}

}  // namespace
}  // namespace brushworks::GPUProcessors
