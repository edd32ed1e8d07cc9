// Resampling against its definition, with the kernels as functions of distance, in every variant.
#include "primitives/resize.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>
#include <random>
#include <vector>

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

/// What a position of the destination takes along one axis, from the region's corner.
struct Tap {
    int at;
    double weight;
};
std::vector<Tap> TapsOf(int x, double factor, double shift, int length, int interpolation) {
    const double u = (x + 0.5 - shift) / factor - 0.5;
    const auto inside = [&](double at) {
        return static_cast<int>(std::clamp(at, 0.0, length - 1.0));
    };
    if (interpolation == kResizeNearest) return {{inside(std::floor(u + 0.5)), 1}};
    std::vector<Tap> taps;
    double sum = 0;
    for (double at = std::floor(u) - 2; at <= std::floor(u) + 3; ++at) {
        taps.push_back({inside(at), Kernel(interpolation, u - at)});
        sum += taps.back().weight;
    }
    for (Tap& tap : taps) tap.weight /= sum;
    return taps;
}

template <class Sample>
void ExpectTheDefinition(const GuardedImage<Sample>& src, IppiRect roi,
                         const GuardedImage<Sample>& dst, Mapping m, int interpolation) {
    std::vector<std::vector<Tap>> columns;
    for (int x = 0; x < dst.size().width; ++x)
        columns.push_back(TapsOf(x, m.xFactor, m.xShift, roi.width, interpolation));
    for (int y = 0; y < dst.size().height; ++y) {
        const auto rows = TapsOf(y, m.yFactor, m.yShift, roi.height, interpolation);
        for (int x = 0; x < dst.size().width; ++x)
            for (int c = 0; c < dst.channels(); ++c) {
                double expected = 0;
                for (const Tap& row : rows)
                    for (const Tap& column : columns[static_cast<std::size_t>(x)])
                        expected += row.weight * column.weight *
                                    src.at(roi.x + column.at, roi.y + row.at, c);
                // Float sums may bring bytes to the other side of a tie.
                const bool bytes = sizeof(Sample) == 1;
                if (bytes) expected = std::clamp(expected, 0.0, 255.0);
                ASSERT_NEAR(dst.at(x, y, c), expected, bytes ? 0.501 : 1.5e-6)
                    << x << ", " << y << ", " << c;
            }
    }
    EXPECT_TRUE(dst.GuardsIntact());
}

/// A random call: every variant against the definition, to the byte against one another.
template <class Sample>
void ExpectOfAnyCall(unsigned seed) {
    std::mt19937 engine(seed);
    const auto upTo = [&](int most) { return static_cast<int>(engine() % (most + 1u)); };
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution(low, high)(engine);
    };
    const auto width = [&] {
        constexpr int kLong[] = {127, 128, 129, 136, 200};
        return upTo(4) ? 1 + upTo(39) : kLong[upTo(4)];
    };
    const auto factor = [&] { return upTo(3) ? std::exp2(between(-4.3, 4.3)) : 1.0; };
    const auto shift = [&] { return upTo(2) ? between(-50, 50) : 0.0; };
    const IppiRect roi = {upTo(2), upTo(2), width(), 1 + upTo(39)};
    const IppiSize dstSize = {width(), 1 + upTo(11)};
    const int channels = upTo(1) ? 4 : 1, interpolation = kInterpolations[upTo(3)];
    const Mapping m = {factor(), factor(), shift(), shift()};
    SCOPED_TRACE(::testing::Message()
                 << "seed " << seed << ", " << roi.width << " x " << roi.height << " to "
                 << dstSize.width << " x " << dstSize.height << ", factors " << m.xFactor << ", "
                 << m.yFactor << ", shifts " << m.xShift << ", " << m.yShift << ", channels "
                 << channels << ", interpolation " << interpolation);
    GuardedImage<Sample> src({roi.x + roi.width + upTo(2), roi.y + roi.height + upTo(2)}, channels);
    src.Randomize(seed);
    if (seed % 4 == 0)  // constant pictures stay so
        for (int y = 0; y < src.size().height; ++y)
            std::fill_n(src.row(y), src.size().width * channels, Sample{1});
    std::optional<GuardedImage<Sample>> narrowest;
    testing::ForEachVariant([&](Variant) {
        GuardedImage<Sample> dst(dstSize, channels);
        ASSERT_EQ(Resize(src, roi, dst, {0, 0, dstSize.width, dstSize.height}, m, interpolation),
                  kStatusOk);
        if (!narrowest) {
            ExpectTheDefinition(src, roi, dst, m, interpolation);
            narrowest.emplace(dst);
        }
        ASSERT_TRUE(dst == *narrowest);
    });
}

TEST(Resize, IsTheDefinitionForAnySizeFactorAndShift) {
    for (unsigned seed = 0; seed < 600 && !HasFailure(); ++seed) {
        ExpectOfAnyCall<std::uint8_t>(seed);
        ExpectOfAnyCall<float>(seed);
    }
}

TEST(Resize, AFactorOfOneChangesNothing) {
    const IppiSize size = {37, 11};
    GuardedImage<float> src(size, 4), dst(size, 4);
    src.Randomize(1);
    for (const int interpolation : kInterpolations) {
        dst.Randomize(2);
        ASSERT_EQ(ippiResize_32f_C4R(src.data(), size, src.step(), {0, 0, 37, 11}, dst.data(),
                                     dst.step(), size, 1, 1, interpolation),
                  kStatusOk);
        EXPECT_TRUE(dst == src) << interpolation;
    }
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
