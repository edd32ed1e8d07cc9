// The edge-preserving smoothing against a plain loop over taps; its tables and conversions.
#include "processors/smooth.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <vector>

#include "frames/memory_allocator.h"
#include "frames/testing_host.h"
#include "processors/color_space_converter.h"
#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::RandomFrame;
using testing::SamePixels;
using testing::SampleAt;
using testing::SamplesPerPixel;

/// One pass over the colours of a frame with the tables of `tables`.
void SmoothAxis(const CFrame& src, CFrame& dst, IppiSize size, int radius, bool across,
                const Processors::CSmooth& tables) {
    const int n = SamplesPerPixel(src);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < (n == 4 ? 3 : 1); ++c) {
                const auto sample = [&](int px, int py) {
                    return static_cast<int>(SampleAt(src, std::clamp(py, 0, size.height - 1),
                                                     std::clamp(px, 0, size.width - 1) * n + c));
                };
                const int centre = sample(x, y);
                unsigned values = 0, weights = static_cast<unsigned>(tables.m_nUnit);
                for (int j = 0; j <= 2 * radius; ++j) {
                    const int p = across ? sample(x - radius + j, y) : sample(x, y - radius + j);
                    const unsigned weight =
                        static_cast<unsigned>(tables.m_anRange[p - centre + 255] *
                                              tables.m_anKernel[j]) >>
                        8;
                    weights += weight;
                    values += weight * static_cast<unsigned>(p);
                }
                Processors::RowOf<unsigned char>(dst, y)[x * n + c] =
                    tables.m_abTone[values / weights];
            }
}

struct Strength {
    float spatial, range, radius, tone;
    bool doubled;
};

void ExpectSmooth(PixelFormat format, IppiSize srcSize, IppiSize dstSize, const Strength& s,
                  int radius) {
    RandomFrame src(srcSize.width, srcSize.height, format, 1),
        dst(dstSize.width, dstSize.height, format, 2),
        expected(dstSize.width, dstSize.height, format, 2),
        between(dstSize.width, dstSize.height, format, 3);
    // Neighbours near enough to be mixed.
    for (int y = 0; y < srcSize.height; ++y)
        for (int i = 0; i < srcSize.width * SamplesPerPixel(src); ++i)
            Processors::RowOf<unsigned char>(src, y)[i] =
                static_cast<unsigned char>(Processors::RowOf<unsigned char>(src, y)[i] / 3);
    Processors::CSmooth smooth;
    smooth.Process(&src, &dst, nullptr, nullptr, s.spatial, s.range, s.radius, s.tone, s.doubled,
                   nullptr, nullptr);
    const IppiSize size = Processors::CommonSize(src, dst);
    SmoothAxis(src, between, size, radius, true, smooth);
    SmoothAxis(between, expected, size, radius, false, smooth);
    ASSERT_TRUE(SamePixels(dst, expected)) << format << ", radius " << radius;
}

TEST(Smooth, MatchesALoopOverTaps) {
    for (const PixelFormat format : {PixelFormatBGRA8, PixelFormatMono8}) {
        ExpectSmooth(format, {53, 48}, {53, 48}, {1.0f, 0.5f, 2.0f, 0.0f, false}, 6);
        ExpectSmooth(format, {53, 48}, {47, 61}, {0.7f, 0.3f, 2.0f, 0.4f, true}, 12);
        ExpectSmooth(format, {53, 100}, {53, 100}, {1.5f, 1.0f, 0.1f, 1.0f, false}, 1);
        ExpectSmooth(format, {31, 20}, {31, 20}, {0.2f, 0.6f, 1e9f, 0.0f, false}, 309);
        ExpectSmooth(format, {1, 1}, {1, 1}, {1.0f, 0.5f, 1.0f, 0.0f, false}, 1);
        ExpectSmooth(format, {9, 9}, {9, 9}, {1.0f, 0.0f, 1.0f, 1.0f, false}, 1);
    }
}

TEST(Smooth, KernelsAreSymmetricAndAddUp) {
    Processors::CSmooth smooth;
    for (const int size : {1, 3, 79, 619})
        for (const float sigma : {0.0f, 0.1f, 0.5f, 1.0f, 2.25f}) {
            smooth.FillGaussKernel(size, sigma);
            const int* kernel = smooth.m_anKernel;
            const int sum = std::accumulate(kernel, kernel + size, 0);
            const int whole = 256 * smooth.m_nUnit;
            EXPECT_LE(sum, whole + whole / 100);
            EXPECT_GT(sum, whole - size);  // each weight is rounded down
            for (int i = 1; i < size / 2; ++i) {
                EXPECT_EQ(kernel[i], kernel[size - 1 - i]);
                EXPECT_GE(kernel[size / 2], kernel[i]);
            }
        }
    smooth.FillGaussKernel(3, 0.0f);
    EXPECT_EQ(smooth.m_anKernel[1], 256) << "nothing beside the centre: 65025 over 65025 / 256";
    smooth.FillGaussKernel(620 + 1, 1.0f);  // larger than the table: refused
    EXPECT_EQ(smooth.m_anKernel[1], 256);
}

TEST(Smooth, TheToneCurveIsStraightOrBent) {
    Processors::CSmooth smooth;
    RandomFrame src(9, 9, PixelFormatMono8, 1), dst(9, 9, PixelFormatMono8, 2);
    smooth.Process(&src, &dst, nullptr, nullptr, 1, 0, 1, 0, false, nullptr, nullptr);
    for (int i = 0; i < 256; ++i) ASSERT_EQ(smooth.m_abTone[i], i);

    smooth.Process(&src, &dst, nullptr, nullptr, 1, 0, 1, 1, false, nullptr, nullptr);
    const unsigned char* tone = smooth.m_abTone;
    EXPECT_EQ(tone[0], 5);
    EXPECT_EQ(tone[255], 255);
    EXPECT_LT(tone[40], 40);
    EXPECT_GT(tone[220], 220);
}

TEST(Smooth, OtherFormatsAreWorkedAtEightBits) {
    for (const PixelFormat format : {PixelFormatARGB8, PixelFormatBGRA32f, PixelFormatARGB32f}) {
        RandomFrame src(33, 40, format, 1), dst(33, 40, format, 2), alpha(33, 40, format, 2);
        RandomFrame from(33, 40, PixelFormatBGRA8, 3), to(33, 40, PixelFormatBGRA8, 4);
        Processors::CColorSpaceConverter convert;
        ASSERT_TRUE(convert.Process(&src, &from));
        ASSERT_TRUE(convert.Process(&dst, &to));
        Processors::CSmooth smooth;
        smooth.Process(&src, &dst, nullptr, nullptr, 1, 0.5f, 2, 0, false, nullptr, nullptr);
        smooth.Process(&from, &to, nullptr, nullptr, 1, 0.5f, 2, 0, false, nullptr, nullptr);
        ASSERT_TRUE(convert.Process(&to, &alpha));
        EXPECT_TRUE(SamePixels(dst, alpha)) << format;
    }
}

TEST(Smooth, WorkFramesServeUnlessTheyHaveTheWorkingFormat) {
    RandomFrame src(20, 20, PixelFormatARGB8, 1), dst(20, 20, PixelFormatBGRA8, 2),
        expected(20, 20, PixelFormatBGRA8, 2), work(20, 20, PixelFormatBGRA8, 3),
        before(20, 20, PixelFormatBGRA8, 3);
    Processors::CSmooth smooth;
    smooth.Process(&src, &expected, nullptr, nullptr, 1, 0.5f, 2, 0, false, nullptr, nullptr);
    smooth.Process(&src, &dst, nullptr, nullptr, 1, 0.5f, 2, 0, false, &work, nullptr);
    EXPECT_TRUE(SamePixels(dst, expected));
    EXPECT_TRUE(SamePixels(work, before)) << "of the working format: left alone";
    // No conversion leads from a format to itself, so nothing happens.
    RandomFrame swapped(20, 20, PixelFormatARGB8, 3);
    smooth.Process(&src, &dst, nullptr, nullptr, 1, 0.9f, 2, 0, false, &swapped, nullptr);
    EXPECT_TRUE(SamePixels(dst, expected));
}

TEST(Smooth, ScratchFramesServeWhereTheyFit) {
    for (const IppiSize size : {IppiSize{20, 20}, {30, 25}, {19, 20}, {1, 1}}) {
        RandomFrame src(20, 20, PixelFormatBGRA8, 1), dst(20, 20, PixelFormatBGRA8, 2),
            expected(20, 20, PixelFormatBGRA8, 2),
            scratch(size.width, size.height, PixelFormatBGRA8, 3);
        Processors::CSmooth smooth;
        smooth.Process(&src, &expected, nullptr, nullptr, 1, 0.5f, 2, 0, false, nullptr, nullptr);
        smooth.Process(&src, &dst, &scratch, nullptr, 1, 0.5f, 2, 0, false, nullptr, nullptr);
        EXPECT_TRUE(SamePixels(dst, expected));
        smooth.Process(&src, &src, &src, nullptr, 1, 0.5f, 2, 0, false, nullptr, nullptr);
        for (int i = 0; i < 80; ++i)
            if (i % 4 != 3) {
                ASSERT_EQ(SampleAt(src, 7, i), SampleAt(expected, 7, i));
            }
    }
}

TEST(Smooth, BearsAnyStrengthAndRefusalsOfMemory) {
    const float values[] = {0.0f,
                            -1.0f,
                            1e-30f,
                            1e30f,
                            std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::quiet_NaN()};
    Processors::CSmooth smooth;
    for (const float a : values)
        for (const float b : values)
            for (const PixelFormat format : {PixelFormatMono8, PixelFormatBGRA32f}) {
                RandomFrame src(9, 5, format, 1);
                smooth.Process(&src, &src, nullptr, nullptr, a, b, b, a, true, nullptr, nullptr);
                smooth.Process(&src, &src, nullptr, nullptr, b, a, 1, 0, true, nullptr, nullptr);
            }
    for (int pieces = 0; pieces < 3; ++pieces) {
        testing::CountingAllocator lender;
        lender.refuseAfter = pieces;
        testing::TestHost host(&lender);
        RandomFrame src(9, 5, PixelFormatBGRA32f, 1), dst(9, 5, PixelFormatBGRA32f, 2),
            before(9, 5, PixelFormatBGRA32f, 2);
        {
            MemoryAllocator allocator(&host);
            smooth.Process(&src, &dst, nullptr, &allocator, 1, 1, 1, 0, false, nullptr, nullptr);
        }
        EXPECT_EQ(lender.out, 0);
        if (pieces < 2) {
            EXPECT_TRUE(SamePixels(dst, before));
        }
    }
    CFrame empty;
    smooth.Process(&empty, nullptr, nullptr, nullptr, 1, 1, 1, 0, false, nullptr, nullptr);
}

}  // namespace
}  // namespace brushworks
