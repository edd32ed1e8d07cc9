// The reduction of levels against loops in 64-bit integers, in every variant.
#include "primitives/reduce_bits.h"

#include <cmath>
#include <set>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;
using testing::kEdgeSizes;
using Int = std::int64_t;

template <class Sample>
constexpr Int kM = sizeof(Sample) == 1 ? 255 : 65535;

int Reduce(const GuardedImage<std::uint8_t>& src, GuardedImage<std::uint8_t>& dst, int noise,
           int dither, int levels) {
    return ippiReduceBits_8u_AC4R(src.data(), src.step(), dst.data(), dst.step(), src.size(), noise,
                                  dither, levels);
}
int Reduce(const GuardedImage<std::uint16_t>& src, GuardedImage<std::uint16_t>& dst, int noise,
           int dither, int levels) {
    return ippiReduceBits_16u_AC4R(src.data(), src.step(), dst.data(), dst.step(), src.size(),
                                   noise, dither, levels);
}

Int Value(Int k, Int M, Int L) {
    return (k * M + (L - 1) / 2) / (L - 1);
}

template <class Sample>
void ReferenceNone(const GuardedImage<Sample>& src, GuardedImage<Sample>& dst, Int L) {
    const Int M = kM<Sample>;
    for (int y = 0; y < src.size().height; ++y)
        for (int x = 0; x < src.size().width; ++x)
            for (int c = 0; c < 3; ++c) {
                const Int v = src.at(x, y, c);
                dst.at(x, y, c) = static_cast<Sample>(Value((v * (L - 1) + M / 2) / M, M, L));
            }
}

constexpr int kBayer[8][8] = {
    {0, 32, 8, 40, 2, 34, 10, 42},  {48, 16, 56, 24, 50, 18, 58, 26},
    {12, 44, 4, 36, 14, 46, 6, 38}, {60, 28, 52, 20, 62, 30, 54, 22},
    {3, 35, 11, 43, 1, 33, 9, 41},  {51, 19, 59, 27, 49, 17, 57, 25},
    {15, 47, 7, 39, 13, 45, 5, 37}, {63, 31, 55, 23, 61, 29, 53, 21},
};

template <class Sample>
void ReferenceOrdered(const GuardedImage<Sample>& src, GuardedImage<Sample>& dst, Int L) {
    const Int M = kM<Sample>;
    for (int y = 0; y < src.size().height; ++y)
        for (int x = 0; x < src.size().width; ++x)
            for (int c = 0; c < 3; ++c) {
                const Int v = src.at(x, y, c), T = 2 * kBayer[y & 7][x & 7] + 1;
                const Int k = (v * (L - 1) * 128 + M * T) / (M * 128);
                dst.at(x, y, c) = static_cast<Sample>(Value(k < L ? k : L - 1, M, L));
            }
}

struct Weight {
    int dx, dy, weight;
};
struct Diffusion {
    Int denominator;
    std::vector<Weight> weights;
};
const Diffusion kDiffusions[] = {
    {16, {{1, 0, 7}, {-1, 1, 3}, {0, 1, 5}, {1, 1, 1}}},
    {48,
     {{1, 0, 7},
      {2, 0, 5},
      {-2, 1, 3},
      {-1, 1, 5},
      {0, 1, 7},
      {1, 1, 5},
      {2, 1, 3},
      {-2, 2, 1},
      {-1, 2, 3},
      {0, 2, 5},
      {1, 2, 3},
      {2, 2, 1}}},
    {42,
     {{1, 0, 8},
      {2, 0, 4},
      {-2, 1, 2},
      {-1, 1, 4},
      {0, 1, 8},
      {1, 1, 4},
      {2, 1, 2},
      {-2, 2, 1},
      {-1, 2, 2},
      {0, 2, 4},
      {1, 2, 2},
      {2, 2, 1}}},
};

/// Pushes each error to the pixels that follow, in an array of sums as large as the picture.
template <class Sample>
void ReferenceDiffusion(const GuardedImage<Sample>& src, GuardedImage<Sample>& dst, int kind,
                        Int L) {
    const Int M = kM<Sample>;
    const Diffusion& diffusion = kDiffusions[kind - 1];
    const auto [width, height] = src.size();
    for (int c = 0; c < 3; ++c) {
        std::vector<Int> sums(static_cast<std::size_t>(width) * height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const Int acc = sums[static_cast<std::size_t>(y) * width + x];
                const Int d = diffusion.denominator;
                const Int share = acc < 0 ? -((-acc + d / 2) / d) : (acc + d / 2) / d;
                Int v = src.at(x, y, c) + share;
                v = v < 0 ? 0 : v > M ? M : v;
                const Int value = Value((v * (L - 1) + M / 2) / M, M, L);
                dst.at(x, y, c) = static_cast<Sample>(value);
                for (const Weight& w : diffusion.weights) {
                    const int tx = x + w.dx, ty = y + w.dy;
                    if (tx >= 0 && tx < width && ty < height)
                        sums[static_cast<std::size_t>(ty) * width + tx] += w.weight * (v - value);
                }
            }
    }
}

template <class Sample>
void Reference(const GuardedImage<Sample>& src, GuardedImage<Sample>& dst, int dither, Int L) {
    if (dither == 0)
        ReferenceNone(src, dst, L);
    else if (dither == 4)
        ReferenceOrdered(src, dst, L);
    else
        ReferenceDiffusion(src, dst, dither, L);
}

template <class Sample>
void CompareOnEdgeSizes(std::initializer_list<int> levels) {
    ForEachVariant([&](Variant) {
        for (const IppiSize size : kEdgeSizes) {
            GuardedImage<Sample> src(size, 4, 20), dst(size, 4);
            src.Randomize(1);
            dst.Randomize(2);
            auto expected = dst;
            for (int dither = 0; dither <= 4; ++dither)
                for (const int L : levels) {
                    Reference(src, expected, dither, L);
                    ASSERT_EQ(Reduce(src, dst, 0, dither, L), kStatusOk);
                    ASSERT_TRUE(dst == expected) << size.width << " x " << size.height << " dither "
                                                 << dither << " levels " << L;
                }
        }
    });
}

TEST(ReduceBits, MatchesTheReferenceOnEdgeSizes) {
    CompareOnEdgeSizes<std::uint8_t>({2, 3, 4, 9, 100, 255, 256});
    CompareOnEdgeSizes<std::uint16_t>({2, 3, 9, 256, 257, 30000, 65535, 65536});
}

/// One column of eight pixels for each 8-bit value, so that every threshold meets every value.
TEST(ReduceBits, MatchesForAllBytesThresholdsAndLevels) {
    GuardedImage<std::uint8_t> src({256 * 8, 8}, 4), dst({256 * 8, 8}, 4);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 256 * 8; ++x)
            for (int c = 0; c < 3; ++c) src.at(x, y, c) = static_cast<std::uint8_t>(x / 8 + 85 * c);
    auto expected = dst;
    for (int L = 2; L <= 256; ++L)
        for (const int dither : {0, 4}) {
            Reference(src, expected, dither, L);
            for (const Variant variant : {Variant::mx, BestVariant()}) {
                SelectVariant(variant);
                ASSERT_EQ(Reduce(src, dst, 0, dither, L), kStatusOk);
                ASSERT_TRUE(dst == expected)
                    << VariantName(variant) << " dither " << dither << " levels " << L;
            }
        }
}

/// 16-bit samples at both sides of each place where the level changes: there an inexact quotient
/// would show.
TEST(ReduceBits, MatchesAroundTheStepsOf16BitLevels) {
    constexpr int kWidth = 512;
    GuardedImage<std::uint16_t> src({kWidth, 16}, 4), dst({kWidth, 16}, 4);
    auto expected = dst;
    std::mt19937 engine(7);
    for (int round = 0; round < 150; ++round) {
        const int L = round < 100 ? 2 + round : 2 + static_cast<int>(engine() % 65535);
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < kWidth; ++x)
                for (int c = 0; c < 3; ++c) {
                    const Int T = round % 2 ? 2 * kBayer[y & 7][x & 7] + 1 : 64;
                    const Int k = 1 + static_cast<Int>(engine() % (L - 1));
                    const Int edge = (k * 65535 - 65535 * T / 128) / (L - 1);
                    const Int v = edge + static_cast<Int>(engine() % 3) - 1;
                    src.at(x, y, c) = static_cast<std::uint16_t>(v < 0 ? 0 : v > 65535 ? 65535 : v);
                }
        const int dither = round % 2 ? 4 : 0;
        Reference(src, expected, dither, L);
        for (const Variant variant : {Variant::mx, BestVariant()}) {
            SelectVariant(variant);
            ASSERT_EQ(Reduce(src, dst, 0, dither, L), kStatusOk);
            ASSERT_TRUE(dst == expected) << VariantName(variant) << " levels " << L;
        }
    }
}

TEST(ReduceBits, AllLevelsChangeNothing) {
    ForEachVariant([](Variant) {
        GuardedImage<std::uint8_t> src({65, 5}, 4), dst = src;
        src.Randomize(1);
        for (int dither = 0; dither <= 4; ++dither) {
            ASSERT_EQ(Reduce(src, dst, 0, dither, 256), kStatusOk);
            for (int y = 0; y < 5; ++y)
                for (int x = 0; x < 65; ++x)
                    ASSERT_EQ(std::memcmp(&dst.at(x, y), &src.at(x, y), 3), 0) << dither;
        }
    });
}

// What diffusion is for: the mean of a flat picture survives, whatever the kernel.
TEST(ReduceBits, DitherKeepsTheMeanOfAFlatPicture) {
    GuardedImage<std::uint8_t> src({128, 128}, 4), dst = src;
    for (int y = 0; y < 128; ++y)
        for (int i = 0; i < 512; ++i) src.row(y)[i] = 77;
    for (int dither = 1; dither <= 4; ++dither) {
        ASSERT_EQ(Reduce(src, dst, 0, dither, 2), kStatusOk);
        double sum = 0;
        for (int y = 0; y < 128; ++y)
            for (int x = 0; x < 128; ++x) sum += dst.at(x, y, 1);
        EXPECT_NEAR(sum / (128 * 128), 77, 2) << "dither " << dither;
    }
}

// No text fixes the noise itself: it moves samples by at most half a step, comes alike at each call
// and in each variant, moves both ways, and leaves only values of levels.
TEST(ReduceBits, NoiseIsBoundedAndRepeats) {
    GuardedImage<std::uint16_t> src({200, 40}, 4), first({200, 40}, 4);
    for (int y = 0; y < 40; ++y)
        for (int i = 0; i < 800; ++i) src.row(y)[i] = 30000;
    for (int dither = 0; dither <= 4; ++dither) {
        SelectVariant(Variant::mx);
        ASSERT_EQ(Reduce(src, first, 100, dither, 3), kStatusOk);
        std::set<int> seen;
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 200; ++x) seen.insert(first.at(x, y, 2));
        EXPECT_TRUE(seen.size() >= 2 && seen.count(32768)) << dither;
        for (const int value : seen) EXPECT_TRUE(value == 0 || value == 32768 || value == 65535);
        ForEachVariant([&](Variant) {
            auto again = src;
            ASSERT_EQ(Reduce(src, again, 100, dither, 3), kStatusOk);
            for (int y = 0; y < 40; ++y)
                for (int x = 0; x < 200; ++x)
                    ASSERT_EQ(std::memcmp(&again.at(x, y), &first.at(x, y), 6), 0);
        });
    }
    // 30000 lies 2768 from the middle level, so its noise must pass 16384 - 2768 to leave it.
    ASSERT_EQ(Reduce(src, first, 80, 0, 3), kStatusOk);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 200; ++x) ASSERT_EQ(first.at(x, y, 0), 32768);
}

TEST(ReduceBits, WorksInPlaceAndOnWideRows) {
    ForEachVariant([](Variant) {
        for (int dither = 0; dither <= 4; ++dither) {
            GuardedImage<std::uint8_t> image({5003, 4}, 4), expected({5003, 4}, 4);
            image.Randomize(3);
            expected.Randomize(3);
            Reference(image, expected, dither, 5);
            ASSERT_EQ(Reduce(image, image, 0, dither, 5), kStatusOk);
            ASSERT_TRUE(image == expected) << dither;
        }
    });
}

TEST(ReduceBits, RefusesBadArguments) {
    std::uint8_t a[16] = {1, 2, 3}, b[16] = {};
    const auto status = [&](int noise, int dither, int levels) {
        return ippiReduceBits_8u_AC4R(a, 16, b, 16, {4, 1}, noise, dither, levels);
    };
    for (const int bad : {status(-1, 0, 2), status(101, 0, 2), status(0, -1, 2), status(0, 5, 2),
                          status(0, 0, 1), status(0, 0, 257)})
        EXPECT_EQ(bad, kStatusBadArgument);
    for (const std::uint8_t untouched : b) EXPECT_EQ(untouched, 0);
    std::uint16_t c[16] = {};
    EXPECT_EQ(ippiReduceBits_16u_AC4R(c, 32, c, 32, {4, 1}, 0, 0, 65537), kStatusBadArgument);
    EXPECT_EQ(ippiReduceBits_16u_AC4R(c, 31, c, 32, {4, 1}, 0, 0, 1), kStatusStepError);
    EXPECT_EQ(ippiReduceBits_8u_AC4R(a, 16, nullptr, 0, {0, 0}, 0, 9, 1), kStatusNullPointer);
}

}  // namespace
}  // namespace brushworks
