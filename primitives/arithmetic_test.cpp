// The integer arithmetic against formulas written for reading, in every variant.
#include "primitives/arithmetic.h"

#include <algorithm>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ExpectInPlace;
using testing::ExpectPerPixel;

/// v >> s to the nearest, ties to even, by comparing the remainder with half.
std::uint64_t ShiftToEven(std::uint64_t v, int s) {
    if (s == 0) return v;
    const std::uint64_t quotient = v >> s, twice = 2 * (v - (quotient << s));
    const std::uint64_t unit = std::uint64_t{1} << s;
    return quotient + (twice > unit || (twice == unit && quotient % 2 == 1));
}

int Over255(int t) {
    return (t + (t >> 8) + 1) >> 8;
}

TEST(Arithmetic, AddOnEveryPairOfBytes) {
    testing::ForEachVariant([](Variant) {
        const IppiSize square{256, 256};
        for (const int scale : {0, 1, 2, 5, 8, 9, 10, 31, 100}) {
            testing::GuardedImage<std::uint8_t> a(square, 1), b(square, 1), expected(square, 1);
            for (int y = 0; y < 256; ++y)
                for (int x = 0; x < 256; ++x) {
                    a.at(x, y) = static_cast<std::uint8_t>(x);
                    b.at(x, y) = static_cast<std::uint8_t>(y);
                    const auto sum = ShiftToEven(x + y, std::min(scale, 40));
                    expected.at(x, y) =
                        static_cast<std::uint8_t>(std::min<std::uint64_t>(sum, 255));
                }
            ASSERT_EQ(ippiAdd_8u_C1IRSfs(a.data(), a.step(), b.data(), b.step(), square, scale), 0);
            ASSERT_TRUE(b == expected) << "scale " << scale;
        }
    });
}

TEST(Arithmetic, AddInEdgeSizes) {
    for (const int scale : {0, 1, 3}) {
        const auto test = [scale](const char* name, int channels, auto add) {
            ExpectPerPixel<std::uint8_t, std::uint8_t>(
                name, {channels}, {channels},
                [&](const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                    IppiSize size) { return add(src, srcStep, dst, dstStep, size, scale); },
                [&](const std::uint8_t* a, std::uint8_t* b) {
                    for (int c = 0; c < channels; ++c)
                        b[c] = static_cast<std::uint8_t>(
                            std::min<std::uint64_t>(ShiftToEven(a[c] + b[c], scale), 255));
                });
        };
        test("8u_C1", 1, ippiAdd_8u_C1IRSfs);
        test("8u_C4", 4, ippiAdd_8u_C4IRSfs);
    }
}

TEST(Arithmetic, MulCScale) {
    const std::uint8_t constants[4] = {0, 255, 128, 3};
    for (const int constant : {0, 1, 2, 127, 128, 254, 255})
        ExpectInPlace<std::uint8_t>(
            "8u_C1", {1},
            [&](std::uint8_t* image, int step, IppiSize size) {
                return ippiMulCScale_8u_C1IR(static_cast<std::uint8_t>(constant), image, step,
                                             size);
            },
            [&](std::uint8_t* s) { *s = static_cast<std::uint8_t>(Over255(*s * constant)); });
    ExpectInPlace<std::uint8_t>(
        "8u_C4", {4},
        [&](std::uint8_t* image, int step, IppiSize size) {
            return ippiMulCScale_8u_C4IR(constants, image, step, size);
        },
        [&](std::uint8_t* s) {
            for (int c = 0; c < 4; ++c)
                s[c] = static_cast<std::uint8_t>(Over255(s[c] * constants[c]));
        });
}

TEST(Arithmetic, MulC16) {
    const std::uint16_t constants[][3] = {{128, 64, 192}, {65535, 32768, 1}, {0, 3, 40000}};
    for (const auto& constant : constants)
        for (const int scale : {0, 1, 7, 16, 30, 31, 32, 33, 60})
            for (const int missing : {0, 1})
                ExpectInPlace<std::uint16_t>(
                    "16u_AC4", {4, 12, missing},
                    [&](std::uint16_t* image, int step, IppiSize size) {
                        return ippiMulC_16u_AC4IRSfs(constant, image, step, size, scale);
                    },
                    [&](std::uint16_t* s) {
                        for (int c = 0; c < 3; ++c) {
                            const auto product = std::uint64_t{s[c]} * constant[c];
                            s[c] = static_cast<std::uint16_t>(
                                std::min<std::uint64_t>(ShiftToEven(product, scale), 65535));
                        }
                    });
}

TEST(Arithmetic, Not) {
    ExpectInPlace<std::uint8_t>("8u_C1", {1}, ippiNot_8u_C1IR,
                                [](std::uint8_t* s) { *s = static_cast<std::uint8_t>(255 - *s); });
}

TEST(Arithmetic, Statuses) {
    std::uint8_t a[4] = {1, 1, 1, 1}, b[4] = {2, 2, 2, 2};
    std::uint16_t wide[4] = {}, factors[3] = {};
    const IppiSize one{1, 1};
    EXPECT_EQ(ippiAdd_8u_C4IRSfs(a, 4, b, 4, one, -1), kStatusBadArgument);
    EXPECT_EQ(ippiAdd_8u_C4IRSfs(nullptr, 4, b, 4, one, -1), kStatusNullPointer);
    EXPECT_EQ(ippiAdd_8u_C4IRSfs(a, 4, b, 3, one, 0), kStatusStepError);
    EXPECT_EQ(b[0], 2);
    EXPECT_EQ(ippiAdd_8u_C4IRSfs(a, 4, b, 4, one, 1), kStatusOk);
    EXPECT_EQ(b[0], 2) << "3 >> 1 is a tie, and 2 is even";
    EXPECT_EQ(ippiMulCScale_8u_C4IR(nullptr, b, 4, one), kStatusNullPointer);
    EXPECT_EQ(ippiMulC_16u_AC4IRSfs(nullptr, wide, 8, one, 7), kStatusNullPointer);
    EXPECT_EQ(ippiMulC_16u_AC4IRSfs(factors, wide, 7, one, 7), kStatusStepError);
    EXPECT_EQ(ippiMulC_16u_AC4IRSfs(factors, wide, 8, one, -1), kStatusBadArgument);
    EXPECT_EQ(ippiNot_8u_C1IR(b, 4, {0, 1}), kStatusSizeError);
}

}  // namespace
}  // namespace brushworks
