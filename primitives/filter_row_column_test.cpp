// The filters along one axis against the plain convolution, in every variant.
#include "primitives/filter_row_column.h"

#include <array>
#include <climits>
#include <cmath>
#include <vector>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ForEachVariant;
using testing::GuardedImage;

using ByteFilter = decltype(&ippiFilterRow_8u_C1R);
using FloatFilter = decltype(&ippiFilterRow_32f_C1R);

/// A member and its layout: `written` of the `channels` samples of a pixel are filtered.
template <class Function>
struct Member {
    const char* name;
    Function filter;
    bool alongRow;
    int channels, written;
};
constexpr Member<ByteFilter> kByteMembers[] = {
    {"Row_8u_C1R", ippiFilterRow_8u_C1R, true, 1, 1},
    {"Row_8u_C4R", ippiFilterRow_8u_C4R, true, 4, 4},
    {"Row_8u_AC4R", ippiFilterRow_8u_AC4R, true, 4, 3},
    {"Column_8u_C1R", ippiFilterColumn_8u_C1R, false, 1, 1},
    {"Column_8u_C4R", ippiFilterColumn_8u_C4R, false, 4, 4},
    {"Column_8u_AC4R", ippiFilterColumn_8u_AC4R, false, 4, 3},
};
constexpr Member<FloatFilter> kFloatMembers[] = {
    {"Row_32f_C1R", ippiFilterRow_32f_C1R, true, 1, 1},
    {"Row_32f_C4R", ippiFilterRow_32f_C4R, true, 4, 4},
    {"Row_32f_AC4R", ippiFilterRow_32f_AC4R, true, 4, 3},
    {"Column_32f_C1R", ippiFilterColumn_32f_C1R, false, 1, 1},
    {"Column_32f_C4R", ippiFilterColumn_32f_C4R, false, 4, 4},
    {"Column_32f_AC4R", ippiFilterColumn_32f_AC4R, false, 4, 3},
};

/// The division of an exact sum, in terms of long double, whose 64 bits hold every sum.
std::uint8_t Divided(std::int64_t sum, int divisor) {
    const auto cut = [](long double v) {
        return static_cast<std::uint8_t>(v <= 0 ? 0 : v >= 255 ? 255 : std::nearbyint(v));
    };
    if (divisor > 0 && (divisor & (divisor - 1)) == 0)
        return cut(static_cast<long double>(sum) / divisor);
    return cut(static_cast<float>(sum) * (1.0f / static_cast<float>(divisor)));
}

/// One call on a random picture that holds nothing but what the filter may read, and its result
/// worked pixel by pixel.
template <class Sample, class Function, class Weight, class Finish, class... Divisor>
void Check(const Member<Function>& member, IppiSize size, const std::vector<Weight>& kernel,
           int anchor, Finish finish, Divisor... divisor) {
    SCOPED_TRACE(member.name);
    const int n = static_cast<int>(kernel.size()), before = n - 1 - anchor;
    const bool row = member.alongRow;
    const IppiSize wide{size.width + (row ? n - 1 : 0), size.height + (row ? 0 : n - 1)};
    const int missing = member.channels - member.written;
    GuardedImage<Sample> src(wide, member.channels, 12, missing);
    GuardedImage<Sample> dst(size, member.channels, 20, missing);
    src.Randomize(1);
    dst.Randomize(2);
    auto expected = dst;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < member.written; ++c) {
                using Sum = std::conditional_t<std::is_integral_v<Weight>, std::int64_t, float>;
                Sum sum = 0;
                for (int j = 0; j < n; ++j)
                    sum += static_cast<Sum>(kernel[static_cast<std::size_t>(n - 1 - j)]) *
                           static_cast<Sum>(row ? src.at(x + j, y, c) : src.at(x, y + j, c));
                expected.at(x, y, c) = finish(sum);
            }
    ASSERT_EQ(member.filter(row ? &src.at(before, 0) : &src.at(0, before), src.step(), dst.data(),
                            dst.step(), size, kernel.data(), n, anchor, divisor...),
              kStatusOk);
    ASSERT_TRUE(dst == expected) << size.width << " x " << size.height << ", " << n
                                 << " taps, anchor " << anchor;
}

void CheckBytes(IppiSize size, const std::vector<int>& kernel, int anchor, int divisor) {
    SCOPED_TRACE(divisor);
    for (const auto& member : kByteMembers)
        Check<std::uint8_t>(
            member, size, kernel, anchor,
            [divisor](std::int64_t sum) { return Divided(sum, divisor); }, divisor);
}

void CheckFloats(IppiSize size, const std::vector<float>& kernel, int anchor) {
    for (const auto& member : kFloatMembers)
        Check<float>(member, size, kernel, anchor, [](float sum) { return sum; });
}

/// Weights between -n and n with nothing symmetric about them.
template <class Weight>
std::vector<Weight> Lopsided(int n) {
    std::vector<Weight> kernel(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i)
        kernel[i] = static_cast<Weight>((i * 7 + 3) % (2 * n + 1) - n / 2) *
                    (std::is_integral_v<Weight> ? Weight(1) : Weight(0.37));
    return kernel;
}

constexpr IppiSize kSizes[] = {{1, 1},  {2, 3},  {3, 9},  {15, 2}, {16, 4},
                               {17, 8}, {33, 5}, {64, 2}, {65, 7}, {131, 11}};

TEST(FilterRowColumn, MatchTheConvolution) {
    ForEachVariant([](Variant) {
        for (const IppiSize size : kSizes)
            for (const int n : {1, 2, 3, 4, 5, 8, 25}) {
                CheckBytes(size, Lopsided<int>(n), n / 2, 2 * n + 1);
                CheckFloats(size, Lopsided<float>(n), n / 2);
            }
        CheckBytes({2111, 3}, Lopsided<int>(51), 25, 64);
        CheckBytes({70, 40}, Lopsided<int>(333), 100, 3000);
        CheckFloats({2111, 3}, Lopsided<float>(51), 25);
        CheckFloats({70, 40}, Lopsided<float>(333), 100);
        // More taps than the lines of a strip have room for.
        const auto identity = [](float sum) { return sum; };
        Check<float>(kFloatMembers[3], {2, 3}, Lopsided<float>(70001), 7, identity);
    });
}

TEST(FilterRowColumn, AllAnchors) {
    ForEachVariant([](Variant) {
        for (const int n : {1, 2, 5, 6})
            for (int anchor = 0; anchor < n; ++anchor) {
                CheckBytes({37, 6}, Lopsided<int>(n), anchor, 4);
                CheckFloats({37, 6}, Lopsided<float>(n), anchor);
            }
    });
}

TEST(FilterRowColumn, DivisorsAndWildWeights) {
    ForEachVariant([](Variant) {
        for (const int divisor : {1, 2, 3, 8, 100, 1 << 30, INT_MAX, -1, -4, INT_MIN}) {
            const IppiSize size{67, 5};
            CheckBytes(size, {1, -2, 3}, 1, divisor);
            CheckBytes(size, {32767, -32768, 32767, 5}, 2, divisor);
            CheckBytes(size, {32768, 1}, 0, divisor);
            CheckBytes(size, std::vector<int>(200, 32767), 9, divisor);
            CheckBytes(size, {INT_MAX, INT_MAX, INT_MAX}, 2, divisor);
            CheckBytes(size, {INT_MIN, INT_MIN, 7, INT_MIN}, 0, divisor);
        }
    });
}

/// A lit pixel in the dark gives the kernel itself, not its mirror image.
TEST(FilterRowColumn, AnImpulseGivesTheKernel) {
    ForEachVariant([](Variant) {
        const int kernel[] = {10, 20, 30, 40};
        std::array<std::uint8_t, 32> picture{}, out{};
        picture[16] = 1;
        for (int anchor = 0; anchor < 4; ++anchor) {
            ASSERT_EQ(ippiFilterRow_8u_C1R(&picture[8], 32, out.data(), 16, {16, 1}, kernel, 4,
                                           anchor, 1),
                      kStatusOk);
            for (int i = 0; i < 16; ++i) {
                const int k = i - 8 + anchor;
                EXPECT_EQ(out[static_cast<std::size_t>(i)], k >= 0 && k < 4 ? kernel[k] : 0);
            }
        }
    });
}

TEST(FilterRowColumn, Statuses) {
    std::uint8_t src[64] = {}, dst[64] = {7};
    const int kernel[3] = {1, 1, 1};
    const auto row = [&](int srcStep, int dstStep, IppiSize size, int n, int anchor, int divisor) {
        return ippiFilterRow_8u_C4R(src + 12, srcStep, dst, dstStep, size, kernel, n, anchor,
                                    divisor);
    };
    EXPECT_EQ(ippiFilterRow_8u_C4R(src, 0, dst, 0, {0, 0}, nullptr, 0, -1, 0), kStatusNullPointer);
    EXPECT_EQ(row(0, 0, {0, 1}, 3, 9, 0), kStatusSizeError);
    EXPECT_EQ(row(0, 0, {1, 1}, 0, 9, 0), kStatusSizeError) << "kernel size";
    EXPECT_EQ(row(0, 0, {1, 1}, 3, 9, 0), kStatusDivideByZero);
    EXPECT_EQ(row(15, 8, {2, 1}, 3, 9, 1), kStatusStepError) << "two pixels and two beside";
    EXPECT_EQ(row(16, 7, {2, 1}, 3, 9, 1), kStatusStepError);
    EXPECT_EQ(row(16, 8, {2, 1}, INT_MAX, 1, 1), kStatusStepError);
    EXPECT_EQ(row(16, 8, {2, 1}, 3, 3, 1), kStatusBadArgument);
    EXPECT_EQ(row(16, 8, {2, 1}, 3, -1, 1), kStatusBadArgument);
    EXPECT_EQ(dst[0], 7);
    EXPECT_EQ(row(16, 8, {2, 1}, 3, 2, 1), kStatusOk);

    const auto column = [&](int srcStep, int n, int anchor) {
        const float taps[3] = {};
        float image[12] = {}, out[4];
        return ippiFilterColumn_32f_C4R(image + 4, srcStep, out, 16, {1, 1}, taps, n, anchor);
    };
    EXPECT_EQ(column(15, 0, 0), kStatusSizeError);
    EXPECT_EQ(column(15, 3, 0), kStatusStepError);
    EXPECT_EQ(column(16, 3, 3), kStatusBadArgument);
    EXPECT_EQ(column(16, 3, 1), kStatusOk) << "the source holds the width alone";
}

}  // namespace
}  // namespace brushworks
