// The smoothing along rows and columns against a loop over taps, in every variant.
#include "primitives/smooth.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;
using Bytes = GuardedImage<std::uint8_t>;

/// Weights with memory of their own.
struct Weights {
    int unit;
    std::vector<int> spatial, range;
    std::vector<std::uint8_t> tone;

    /// Spatial weights of a bell that sum to 256 units or a little less, range weights of a bell.
    Weights(int radius, double spread, double reach, int sumUnit = kSmoothUnit)
        : unit(sumUnit), range(256), tone(256) {
        double sum = 0.0;
        const auto bell = [&](int i) { return std::exp(-i * i / (2 * spread * spread)); };
        for (int i = -radius; i <= radius; ++i) sum += bell(i);
        for (int i = radius; i >= 0; --i)
            spatial.push_back(static_cast<int>(bell(i) / sum * 256.0 * unit));
        for (int i = 0; i < 256; ++i) {
            range[i] = static_cast<int>(255.0 * std::exp(-i * i / (2 * reach * reach)) + 0.5);
            tone[i] = static_cast<std::uint8_t>(255 - i);
        }
    }
    SmoothWeights Get() const {
        return {static_cast<int>(spatial.size()) - 1, unit, spatial.data(), range.data(),
                tone.data()};
    }
};

/// One result, tap by tap. `across` is 1 along rows and 0 along columns.
std::uint8_t Expected(const Bytes& src, int x, int y, int channel, int across, const Weights& w) {
    const int radius = w.Get().radius;
    unsigned values = 0, weights = static_cast<unsigned>(w.unit);
    for (int j = -radius; j <= radius; ++j) {
        const int p = src.at(std::clamp(x + j * across, 0, src.size().width - 1),
                             std::clamp(y + j * (1 - across), 0, src.size().height - 1), channel);
        const unsigned weight = static_cast<unsigned>(
            w.range[std::abs(p - src.at(x, y, channel))] * w.spatial[radius - std::abs(j)] >> 8);
        weights += weight;
        values += weight * static_cast<unsigned>(p);
    }
    return w.tone[values / weights];
}

using Smooth = decltype(&SmoothRows_8u_C1R);
constexpr struct {
    Smooth smooth;
    int channels, across;
} kMembers[] = {{SmoothRows_8u_C1R, 1, 1},
                {SmoothRows_8u_AC4R, 4, 1},
                {SmoothColumns_8u_C1R, 1, 0},
                {SmoothColumns_8u_AC4R, 4, 0}};

void ExpectTapByTap(const Weights& weights, IppiSize size, int mask) {
    const SmoothWeights w = weights.Get();
    for (const auto& member : kMembers) {
        Bytes src(size, member.channels), dst(size, member.channels);
        src.Randomize(1);
        for (int y = 0; y < size.height; ++y)
            for (int i = 0; i < size.width * member.channels; ++i)
                src.row(y)[i] = static_cast<std::uint8_t>(src.row(y)[i] & mask);
        dst.Randomize(2);
        Bytes expected(dst);
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < size.width; ++x)
                for (int c = 0; c < (member.channels == 4 ? 3 : 1); ++c)
                    expected.at(x, y, c) = Expected(src, x, y, c, member.across, weights);
        ASSERT_EQ(member.smooth(src.data(), src.step(), dst.data(), dst.step(), size, &w),
                  kStatusOk);
        ASSERT_TRUE(dst == expected) << size.width << " x " << size.height << ", radius "
                                     << w.radius << ", channels " << member.channels;
    }
}

TEST(Smooth, MatchesALoopOverTaps) {
    ForEachVariant([](Variant) {
        for (const IppiSize size : testing::kEdgeSizes)
            ExpectTapByTap(Weights(5, 3.0, 40.0), size, 255);
        ExpectTapByTap(Weights(39, 20.0, 60.0), {67, 90}, 255);
        // Steps of the range that lie close together and far apart; samples near one another.
        ExpectTapByTap(Weights(1, 0.5, 4.0), {40, 9}, 15);
        ExpectTapByTap(Weights(2, 1.0, 1e9), {40, 9}, 255);
        ExpectTapByTap(Weights(0, 1.0, 9.0), {40, 9}, 255);
        // Finer weights, by ranges that end in each part of a table and in none.
        for (const double reach : {1.0, 9.0, 30.0, 60.0, 90.0, 1e9})
            ExpectTapByTap(Weights(90, 50.0, reach, kFineSmoothUnit), {67, 40}, 255);
        for (const IppiSize size : testing::kEdgeSizes)
            ExpectTapByTap(Weights(5, 3.0, 40.0, kFineSmoothUnit), size, 255);
    });
}

TEST(Smooth, RunsAndStripsJoin) {
    ForEachVariant([](Variant) {
        ExpectTapByTap(Weights(12, 6.0, 90.0), {1100, 2}, 255);
        ExpectTapByTap(Weights(12, 6.0, 90.0), {4099, 1}, 255);
        ExpectTapByTap(Weights(12, 6.0, 90.0), {3, 600}, 255);
        ExpectTapByTap(Weights(kLargestSmoothRadius, 20.0, 50.0), {70, 5}, 255);
        ExpectTapByTap(Weights(kLargestSmoothRadius, 200.0, 50.0, kFineSmoothUnit), {1100, 3}, 255);
        ExpectTapByTap(Weights(100, 90.0, 50.0, kFineSmoothUnit), {3, 600}, 255);
    });
}

TEST(Smooth, TheLargestSumsStayExact) {
    // One tap of weight 255 beside itself, and many that weigh 255 together, on the brightest
    // image; and the greatest sums that finer weights may have.
    Weights one(0, 1.0, 1e9), many(127, 1e9, 1e9), fine(2, 1.0, 1e9, kFineSmoothUnit);
    one.spatial = {256};
    std::fill(many.spatial.begin(), many.spatial.end(), 2);
    fine.spatial = {16384, 32767, 32767};
    ForEachVariant([&](Variant) {
        for (const Weights* weights : {&one, &many, &fine}) {
            const SmoothWeights w = weights->Get();
            Bytes src({65, 1}, 1), dst({65, 1}, 1);
            std::fill_n(src.data(), 65, std::uint8_t{255});
            ASSERT_EQ(
                SmoothRows_8u_C1R(src.data(), src.step(), dst.data(), dst.step(), {65, 1}, &w),
                kStatusOk);
            for (int x = 0; x < 65; ++x)
                ASSERT_EQ(dst.at(x, 0), Expected(src, x, 0, 0, 1, *weights));
        }
    });
}

TEST(Smooth, RefusesWeightsOutsideTheirDomain) {
    std::uint8_t src[4] = {1, 2, 3, 4}, dst[4] = {7, 7, 7, 7};
    const auto status = [&](auto change) {
        Weights weights(2, 1.0, 50.0);
        SmoothWeights w = weights.Get();
        change(weights, w);
        for (const auto& member : kMembers)
            EXPECT_EQ(member.smooth(src, 4, dst, 4, {1, 1}, &w), kStatusBadArgument);
    };
    status([](Weights&, SmoothWeights& w) { w.unit = 2; });
    status([](Weights& weights, SmoothWeights& w) {
        w.unit = kFineSmoothUnit;
        weights.spatial = {16384, 32767, 32768};
    });
    status([](Weights& weights, SmoothWeights& w) {
        w.unit = kFineSmoothUnit;
        weights.spatial = {16400, 1, 32767};
    });
    status([](Weights&, SmoothWeights& w) { w.radius = -1; });
    status([](Weights&, SmoothWeights& w) { w.radius = kLargestSmoothRadius + 1; });
    status([](Weights& weights, SmoothWeights&) { weights.spatial[0] = -1; });
    status([](Weights& weights, SmoothWeights&) { weights.spatial[2] = 257; });
    status([](Weights& weights, SmoothWeights&) { weights.spatial = {86, 86, 88}; });
    status([](Weights& weights, SmoothWeights&) { weights.range[0] = 256; });
    status([](Weights& weights, SmoothWeights&) { weights.range[9] = weights.range[8] + 1; });
    status([](Weights& weights, SmoothWeights&) { weights.range[255] = -1; });
    EXPECT_EQ(dst[0], 7);
    EXPECT_EQ(SmoothRows_8u_C1R(src, 0, dst, 0, {0, 0}, nullptr), kStatusNullPointer);
}

}  // namespace
}  // namespace brushworks
