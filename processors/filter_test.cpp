// The filters of frames against sums over taps: what is worked on, and where it goes.
#include "processors/filter.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "processors/filter_axis.h"
#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::kAllFormats;
using testing::RandomFrame;
using testing::SamePixels;
using testing::SampleAt;
using testing::SamplesPerPixel;

bool IsFloat(const CFrame& f) {
    return Processors::IsFloatColor(f) || Processors::IsFloatPlane(f);
}

/// The sample as a filter stores it.
float Stored(const CFrame& frame, float value) {
    return IsFloat(frame) ? value : std::nearbyint(std::clamp(value, 0.0f, 255.0f));
}

TEST(Filter, WorksOnWhatIsInsideAndWalksTheKernelInReverse) {
    float kernel[9] = {0.5f, 0.25f, 0.0f, 0.125f, 0.0f, -0.25f, 0.0f, 0.375f, 0.0625f};
    for (const PixelFormat format : {PixelFormatBGRA8, PixelFormatARGB8, PixelFormatBGRA32f,
                                     PixelFormatARGB32f, PixelFormatMono8})
        for (const bool toOrigin : {false, true}) {
            RandomFrame src(19, 13, format, 1), dst(19, 13, format, 2), before(19, 13, format, 2);
            ASSERT_TRUE(Processors::CFilter().Process(&src, &dst, kernel, 3, toOrigin));
            const int n = SamplesPerPixel(src), corner = toOrigin ? 0 : 1;
            for (int y = 0; y < 13; ++y)
                for (int i = 0; i < 19 * n; ++i) {
                    const int x = i / n - corner, row = y - corner;
                    float expected = SampleAt(before, y, i);
                    if (x >= 0 && x < 17 && row >= 0 && row < 11) {
                        float sum = 0.0f;
                        for (int j = 0; j < 9; ++j)
                            sum +=
                                kernel[8 - j] * SampleAt(src, row + j / 3, (x + j % 3) * n + i % n);
                        expected = Stored(src, sum);
                    }
                    ASSERT_EQ(SampleAt(dst, y, i), expected) << format << ": " << x << ", " << row;
                }
            RandomFrame same(19, 13, format, 1), other(19, 13, format, 1);
            ASSERT_TRUE(Processors::CFilter().Process(&same, &same, kernel, 3, toOrigin));
            ASSERT_TRUE(Processors::CFilter().Process(&src, &other, kernel, 3, toOrigin));
            EXPECT_TRUE(SamePixels(same, other)) << "in place";
        }
    RandomFrame plane(19, 13, PixelFormatMono32f, 1), small(2, 2, PixelFormatMono8, 1);
    EXPECT_FALSE(Processors::CFilter().Process(&plane, &plane, kernel, 3, true));
    EXPECT_FALSE(Processors::CFilter().Process(&small, &small, kernel, 3, true));
    EXPECT_FALSE(Processors::CFilter().Process(&small, &small, kernel, 0, true));
}

/// A pass along one axis: `count` places from `from` go to `to`, on either axis.
struct Pass {
    IppiPoint from, to;
    IppiSize count;
    bool across;
};

template <class Weight>
void ExpectPass(const CFrame& src, const CFrame& dst, const CFrame& before, const Pass& pass,
                const std::vector<Weight>& kernel, int anchor, int divisor, bool allChannels) {
    const int n = SamplesPerPixel(src), size = static_cast<int>(kernel.size());
    const int alpha = n == 4 ? Processors::AlphaPlane(src) : -1;
    for (int y = 0; y < dst.m_nHeight; ++y)
        for (int i = 0; i < dst.m_nWidth * n; ++i) {
            const int x = i / n - pass.to.x, row = y - pass.to.y;
            float expected = SampleAt(before, y, i);
            const bool isAlpha = !allChannels && i % n == alpha;
            // Where alpha comes first it is filtered, then copied over the common region.
            if (isAlpha && alpha == 0 && i / n < src.m_nWidth && y < src.m_nHeight) {
                expected = SampleAt(src, y, i);
            } else if (isAlpha && alpha == 3) {
                // left alone
            } else if (x >= 0 && x < pass.count.width && row >= 0 && row < pass.count.height) {
                Weight sum{};
                for (int j = 0; j < size; ++j) {
                    const int offset = j - (size - 1 - anchor);
                    const int sx = pass.from.x + x + (pass.across ? offset : 0);
                    const int sy = pass.from.y + row + (pass.across ? 0 : offset);
                    sum += kernel[size - 1 - j] *
                           static_cast<Weight>(SampleAt(src, sy, sx * n + i % n));
                }
                expected = IsFloat(src) ? static_cast<float>(sum)
                                        : Stored(src, static_cast<float>(sum) *
                                                          (1.0f / static_cast<float>(divisor)));
            }
            ASSERT_EQ(SampleAt(dst, y, i), expected) << i / n << ", " << y;
        }
}

template <class Weight>
void ExpectBothPasses(PixelFormat format, IppiSize dstSize, int size, const Pass& row,
                      const Pass& column) {
    std::vector<Weight> kernel(static_cast<std::size_t>(size));
    for (int i = 0; i < size; ++i) kernel[i] = static_cast<Weight>(3 * i + 1);
    const int anchor = size / 2, margin = 2, divisor = 37;
    for (const bool allChannels : {false, true}) {
        RandomFrame src(23, 17, format, 1), dst(dstSize.width, dstSize.height, format, 2),
            before(dstSize.width, dstSize.height, format, 2);
        SCOPED_TRACE(::testing::Message() << "format " << format << ", size " << size);
        ASSERT_TRUE(Processors::CFilterRow().Process(&src, &dst, kernel.data(), size, anchor,
                                                     margin, divisor, allChannels));
        ExpectPass(src, dst, before, row, kernel, anchor, divisor, allChannels);
        testing::Randomize(dst, 2);
        ASSERT_TRUE(Processors::CFilterColumn().Process(&src, &dst, kernel.data(), size, margin,
                                                        anchor, divisor, allChannels));
        ExpectPass(src, dst, before, column, kernel, anchor, divisor, allChannels);
    }
}

TEST(FilterAxis, RowsAndColumnsLoseAndPlaceTheirPixels) {
    const auto expect = [](IppiSize dst, int size, const Pass& row, const Pass& column) {
        for (const PixelFormat format : kAllFormats)
            if (format < PixelFormatBGRA32f || format == PixelFormatMono8)
                ExpectBothPasses<std::int32_t>(format, dst, size, row, column);
            else
                ExpectBothPasses<float>(format, dst, size, row, column);
    };
    // A row of 23 keeps 19 under 5 taps and under 4; a column of 17 keeps 12 under 5 and 13
    // under 4.
    expect({23, 17}, 5, {{2, 2}, {0, 2}, {19, 13}, true}, {{2, 2}, {2, 2}, {19, 12}, false});
    expect({23, 17}, 4, {{2, 2}, {2, 2}, {19, 13}, true}, {{2, 2}, {2, 2}, {19, 13}, false});
    expect({30, 26}, 4, {{2, 2}, {5, 2}, {19, 13}, true}, {{2, 2}, {2, 6}, {19, 13}, false});
    expect({9, 8}, 5, {{2, 2}, {0, 0}, {9, 8}, true}, {{2, 2}, {0, 0}, {9, 8}, false});
}

TEST(FilterAxis, RefusesWhatLeavesTheSource) {
    const std::int32_t kernel[8] = {1, 1, 1, 1, 1, 1, 1, 1};
    RandomFrame src(9, 9, PixelFormatMono8, 1), dst(9, 9, PixelFormatMono8, 2),
        before(9, 9, PixelFormatMono8, 2), color(9, 9, PixelFormatBGRA8, 2);
    const auto refused = [&](int size, int anchor, int margin) {
        return !Processors::CFilterRow().Process(&src, &dst, kernel, size, anchor, margin, 1,
                                                 true) &&
               !Processors::CFilterColumn().Process(&src, &dst, kernel, size, margin, anchor, 1,
                                                    true);
    };
    EXPECT_TRUE(refused(5, 5, 0)) << "the anchor lies behind the kernel";
    EXPECT_TRUE(refused(5, 0, 0)) << "taps to the left of the first pixel";
    EXPECT_TRUE(refused(5, 4, 0)) << "taps to the right of the last pixel";
    EXPECT_TRUE(refused(5, -1, 0));
    EXPECT_TRUE(refused(5, 2, -1));
    EXPECT_TRUE(refused(5, 2, 5)) << "no row is left";
    EXPECT_TRUE(refused(5, 2, 1 << 30));
    EXPECT_TRUE(refused(1 << 30, 1 << 29, 0));
    EXPECT_FALSE(Processors::CFilterRow().Process(&src, &color, kernel, 3, 1, 0, 1, true));
    EXPECT_TRUE(SamePixels(dst, before));
}

}  // namespace
}  // namespace brushworks
