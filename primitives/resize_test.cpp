// Resampling against its definition, with the kernels as functions of distance, in every variant.
#include "primitives/resize.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::FencedBytes;
using testing::GuardedImage;

constexpr int kInterpolations[] = {kResizeNearest, kResizeLinear, kResizeCubic, kResizeLanczos};

struct Mapping {
    double xFactor, yFactor, xShift = 0, yShift = 0;
};

int SqrPixel(const GuardedImage<std::uint8_t>& src, IppiRect srcRoi,
             GuardedImage<std::uint8_t>& dst, IppiRect dstRoi, Mapping m, int interpolation,
             std::uint8_t* buffer) {
    auto* resize = src.channels() == 1 ? ippiResizeSqrPixel_8u_C1R : ippiResizeSqrPixel_8u_C4R;
    return resize(src.data(), src.size(), src.step(), srcRoi, dst.data(), dst.step(), dstRoi,
                  m.xFactor, m.yFactor, m.xShift, m.yShift, interpolation, buffer);
}
int SqrPixel(const GuardedImage<float>& src, IppiRect srcRoi, GuardedImage<float>& dst,
             IppiRect dstRoi, Mapping m, int interpolation, std::uint8_t* buffer) {
    auto* resize = src.channels() == 1 ? ippiResizeSqrPixel_32f_C1R : ippiResizeSqrPixel_32f_C4R;
    return resize(src.data(), src.size(), src.step(), srcRoi, dst.data(), dst.step(), dstRoi,
                  m.xFactor, m.yFactor, m.xShift, m.yShift, interpolation, buffer);
}

/// With a buffer of exactly the stated size, whose end faults.
template <class Sample>
int Resize(const GuardedImage<Sample>& src, IppiRect srcRoi, GuardedImage<Sample>& dst,
           IppiRect dstRoi, Mapping m, int interpolation) {
    int bytes = 0;
    EXPECT_EQ(ippiResizeGetBufSize(srcRoi, dstRoi, src.channels(), interpolation, &bytes),
              kStatusOk);
    FencedBytes buffer(static_cast<std::size_t>(bytes));
    return SqrPixel(src, srcRoi, dst, dstRoi, m, interpolation, buffer.data());
}

double Kernel(int interpolation, double distance) {
    const double d = std::fabs(distance);
    const auto sinc = [](double x) {
        return x == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
    };
    switch (interpolation) {
        case kResizeLinear:
            return std::max(0.0, 1 - d);
        case kResizeCubic:
            if (d >= 2) return 0;
            return d < 1 ? 1.5 * d * d * d - 2.5 * d * d + 1
                         : -0.5 * d * d * d + 2.5 * d * d - 4 * d + 2;
        default:
            return d >= 3 ? 0 : sinc(d) * sinc(d / 3);
    }
}

/// One sample by the definition, all taps of both axes at once.
template <class Sample>
double Reference(const GuardedImage<Sample>& src, IppiRect roi, int x, int y, int channel,
                 Mapping m, int interpolation) {
    const double u = (x + 0.5 - m.xShift) / m.xFactor - 0.5;
    const double v = (y + 0.5 - m.yShift) / m.yFactor - 0.5;
    const auto at = [&](double column, double row) {
        const double inX = std::clamp(column, 0.0, roi.width - 1.0);
        const double inY = std::clamp(row, 0.0, roi.height - 1.0);
        return static_cast<double>(
            src.at(roi.x + static_cast<int>(inX), roi.y + static_cast<int>(inY), channel));
    };
    if (interpolation == kResizeNearest) return at(std::floor(u + 0.5), std::floor(v + 0.5));
    double sum = 0, weights = 0;
    for (int j = -2; j <= 3; ++j)
        for (int i = -2; i <= 3; ++i) {
            const double column = std::floor(u) + i, row = std::floor(v) + j;
            const double w = Kernel(interpolation, u - column) * Kernel(interpolation, v - row);
            sum += w * at(column, row);
            weights += w;
        }
    return sum / weights;
}

template <class Sample>
void ExpectNear(const GuardedImage<Sample>& src, IppiRect roi, const GuardedImage<Sample>& dst,
                Mapping m, int interpolation) {
    for (int y = 0; y < dst.size().height; ++y)
        for (int x = 0; x < dst.size().width; ++x)
            for (int c = 0; c < dst.channels(); ++c) {
                const double expected = Reference(src, roi, x, y, c, m, interpolation);
                if constexpr (sizeof(Sample) == 1)  // float sums may fall to either side of a tie
                    ASSERT_NEAR(dst.at(x, y, c), std::clamp(expected, 0.0, 255.0), 0.5005)
                        << x << ", " << y;
                else
                    ASSERT_NEAR(dst.at(x, y, c), expected, 2e-5) << x << ", " << y;
            }
    EXPECT_TRUE(dst.GuardsIntact());
}

/// All variants against the definition, and to the byte against one another.
template <class Sample>
void ExpectAll(IppiSize srcSize, IppiRect roi, IppiSize dstSize, Mapping m) {
    for (const int channels : {1, 4})
        for (const int interpolation : kInterpolations) {
            SCOPED_TRACE(interpolation);
            std::optional<GuardedImage<Sample>> narrowest;
            testing::ForEachVariant([&](Variant) {
                GuardedImage<Sample> src(srcSize, channels), dst(dstSize, channels);
                src.Randomize(1);
                dst.Randomize(2);
                ASSERT_EQ(
                    Resize(src, roi, dst, {0, 0, dstSize.width, dstSize.height}, m, interpolation),
                    kStatusOk);
                if (!narrowest) {
                    ExpectNear(src, roi, dst, m, interpolation);
                    narrowest.emplace(dst);
                }
                ASSERT_TRUE(dst == *narrowest);
            });
        }
}

TEST(Resize, MatchesTheDefinition) {
    const struct {
        IppiSize src;
        IppiRect roi;
        IppiSize dst;
        Mapping map;
    } cases[] = {
        {{16, 9}, {0, 0, 16, 9}, {32, 18}, {2, 2}},
        {{33, 21}, {0, 0, 33, 21}, {17, 11}, {0.5, 0.5}},
        {{23, 17}, {3, 2, 15, 11}, {31, 7}, {31.0 / 15, 7.0 / 11}},
        {{20, 10}, {0, 0, 20, 10}, {20, 10}, {1, 1, 0.25, -3.5}},
        {{1, 1}, {0, 0, 1, 1}, {19, 3}, {19, 3}},
        {{64, 5}, {1, 1, 62, 3}, {1, 1}, {0.01, 0.3}},
        {{7, 300}, {0, 0, 7, 300}, {70, 3}, {10, 0.01}},
        {{400, 9}, {2, 0, 395, 9}, {277, 6}, {0.7, 0.7}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.src.width << " to " << c.dst.width);
        ExpectAll<std::uint8_t>(c.src, c.roi, c.dst, c.map);
        ExpectAll<float>(c.src, c.roi, c.dst, c.map);
    }
}

TEST(Resize, AFactorOfOneChangesNothingAndConstantsStay) {
    testing::ForEachVariant([](Variant) {
        for (const int interpolation : kInterpolations) {
            const IppiSize size = {37, 11};
            GuardedImage<float> src(size, 4), dst(size, 4);
            src.Randomize(1);
            ASSERT_EQ(ippiResize_32f_C4R(src.data(), size, src.step(), {0, 0, 37, 11}, dst.data(),
                                         dst.step(), size, 1, 1, interpolation),
                      kStatusOk);
            EXPECT_TRUE(dst == src);

            GuardedImage<std::uint8_t> flat(size, 4), larger({50, 30}, 4);
            for (int y = 0; y < size.height; ++y) std::fill_n(flat.row(y), 4 * size.width, 201);
            ASSERT_EQ(
                ippiResize_8u_C4R(flat.data(), size, flat.step(), {0, 0, 37, 11}, larger.data(),
                                  larger.step(), {50, 30}, 50.0 / 37, 30.0 / 11, interpolation),
                kStatusOk);
            for (int y = 0; y < 30; ++y)
                for (int i = 0; i < 200; ++i) ASSERT_EQ(larger.row(y)[i], 201);
        }
    });
}

TEST(Resize, PiecesMakeTheWholePicture) {
    GuardedImage<std::uint8_t> src({29, 13}, 4), whole({41, 30}, 4), pieces({41, 30}, 4);
    src.Randomize(1);
    const IppiRect roi = {2, 1, 20, 12};
    const Mapping m = {2.05, 2.5, 0.3, 0.1};
    for (const int interpolation : kInterpolations) {
        ASSERT_EQ(Resize(src, roi, whole, {0, 0, 41, 30}, m, interpolation), kStatusOk);
        for (const IppiRect piece :
             {IppiRect{0, 0, 41, 7}, IppiRect{0, 7, 19, 23}, IppiRect{19, 7, 22, 23}})
            ASSERT_EQ(Resize(src, roi, pieces, piece, m, interpolation), kStatusOk);
        EXPECT_TRUE(whole == pieces) << interpolation;
    }
}

// Four channels have a way of their own to one half; one channel has not.
template <class Sample>
void ExpectHalvesAlike(int width, int interpolation) {
    const IppiSize wide = {2 * width + 3, 11};
    GuardedImage<Sample> src(wide, 4), dst({width, 5}, 4);
    GuardedImage<Sample> plane(wide, 1), half({width, 5}, 1);
    src.Randomize(1);
    for (int y = 0; y < wide.height; ++y)  // many sums end on ties
        for (int x = 0; x < wide.width; ++x) plane.at(x, y) = src.at(x, y, 2);
    const IppiRect roi = {1, 1, 2 * width, 10}, to = {0, 0, width, 5};
    ASSERT_EQ(Resize(src, roi, dst, to, {0.5, 0.5}, interpolation), kStatusOk);
    ASSERT_EQ(Resize(plane, roi, half, to, {0.5, 0.5}, interpolation), kStatusOk);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < width; ++x) ASSERT_EQ(dst.at(x, y, 2), half.at(x, y));
    EXPECT_TRUE(dst.GuardsIntact());
}

TEST(Resize, HalvesAsTheGeneralWayDoes) {
    testing::ForEachVariant([](Variant) {
        for (const int width : {1, 2, 3, 7, 16, 17, 40})
            for (const int interpolation : {kResizeNearest, kResizeLinear}) {
                ExpectHalvesAlike<std::uint8_t>(width, interpolation);
                ExpectHalvesAlike<float>(width, interpolation);
            }
    });
}

// Positions that leave every integer's range come to rest at the edge.
TEST(Resize, WildNumbersAreSafe) {
    constexpr double kLargest = std::numeric_limits<double>::max();
    constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    GuardedImage<std::uint8_t> src({5, 4}, 1), dst({9, 7}, 1);
    src.Randomize(1);
    const IppiRect all = {0, 0, 5, 4}, to = {0, 0, 9, 7};
    for (const int interpolation : kInterpolations) {
        for (const Mapping& m : {Mapping{kSmallest, kSmallest},
                                 {kLargest, kLargest},
                                 {kInfinity, kInfinity},
                                 {1, 1, kLargest, -kLargest},
                                 {kSmallest, kSmallest, kLargest, kLargest}}) {
            ASSERT_EQ(Resize(src, all, dst, to, m, interpolation), kStatusOk);
            ASSERT_TRUE(dst.GuardsIntact());
        }
        ASSERT_EQ(Resize(src, all, dst, to, {1, 1, kLargest, -kLargest}, interpolation), kStatusOk);
        EXPECT_EQ(dst.at(8, 0), src.at(0, 3)) << "far to the left, far below";
        // A region that reaches beyond its image repeats the image's edge.
        ASSERT_EQ(Resize(src, {-200, 2, 201, 2000000000}, dst, {0, 0, 1, 7}, {1, 1, -200, 0},
                         kResizeNearest),
                  kStatusOk);
        EXPECT_EQ(dst.at(0, 6), src.at(0, 3));
    }
    const double nan = std::nan("");
    for (const Mapping& m : {Mapping{0, 1},
                             {1, -1},
                             {nan, 1},
                             {1, nan},
                             {1, 1, nan},
                             {1, 1, 0, nan},
                             {1, 1, kInfinity, 0}})
        EXPECT_EQ(Resize(src, all, dst, to, m, kResizeLinear), kStatusBadArgument);
}

TEST(Resize, Statuses) {
    GuardedImage<std::uint8_t> src({5, 4}, 1), dst({9, 7}, 1);
    const GuardedImage<std::uint8_t> before(dst);
    std::uint8_t buffer[4096];
    int bytes = 0;
    const auto call = [&](IppiRect from, IppiRect to, int interpolation) {
        return SqrPixel(src, from, dst, to, {1, 1}, interpolation, buffer);
    };
    const IppiRect all = {0, 0, 5, 4}, to = {0, 0, 9, 7};
    EXPECT_EQ(SqrPixel(src, all, dst, to, {1, 1}, kResizeLinear, nullptr), kStatusNullPointer);
    EXPECT_EQ(call({0, 0, 0, 4}, to, kResizeLinear), kStatusSizeError);
    EXPECT_EQ(call(all, {0, 0, 9, 0}, kResizeLinear), kStatusSizeError);
    EXPECT_EQ(call(all, {20, 0, 9, 7}, kResizeLinear), kStatusStepError);
    EXPECT_EQ(call(all, {-1, 0, 9, 7}, kResizeLinear), kStatusBadArgument);
    EXPECT_EQ(call(all, to, 3), kStatusBadArgument);
    EXPECT_EQ(call({5, 0, 2, 2}, to, kResizeLinear), kStatusBadArgument) << "beside the image";
    EXPECT_EQ(call({-3, 0, 3, 2}, to, kResizeLinear), kStatusBadArgument) << "beside the image";
    EXPECT_TRUE(dst == before);
    EXPECT_EQ(ippiResizeGetBufSize(all, to, 1, kResizeLinear, nullptr), kStatusNullPointer);
    EXPECT_EQ(ippiResizeGetBufSize(all, {0, 0, 0, 1}, 1, kResizeLinear, &bytes), kStatusSizeError);
    EXPECT_EQ(ippiResizeGetBufSize(all, to, 3, kResizeLinear, &bytes), kStatusBadArgument);
    EXPECT_EQ(ippiResizeGetBufSize(all, to, 1, 5, &bytes), kStatusBadArgument);
    EXPECT_EQ(ippiResizeGetBufSize({0, 0, 2000000000, 1}, to, 4, kResizeLinear, &bytes),
              kStatusBadArgument);
}

}  // namespace
}  // namespace brushworks
