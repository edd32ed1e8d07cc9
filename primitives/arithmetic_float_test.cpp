// The float arithmetic, bit for bit, in every variant.
#include "primitives/arithmetic_float.h"

#include <cmath>

#include "primitives/testing.h"

namespace brushworks {
namespace {

using testing::ExpectInPlace;
using testing::ExpectPerPixel;

constexpr float kConstants[4] = {0.299f, -1.5f, 255.0f, 1e-3f};

TEST(ArithmeticFloat, Add) {
    const auto test = [](const char* name, int channels, auto add) {
        ExpectPerPixel<float, float>(name, {channels}, {channels, 20}, add,
                                     [channels](const float* a, float* b) {
                                         for (int c = 0; c < channels; ++c) b[c] += a[c];
                                     });
    };
    test("C1", 1, ippiAdd_32f_C1IR);
    test("C4", 4, ippiAdd_32f_C4IR);
}

TEST(ArithmeticFloat, ConstantsInPlace) {
    ExpectInPlace<float>(
        "MulC_C1", {1},
        [](float* image, int step, IppiSize size) {
            return ippiMulC_32f_C1IR(kConstants[1], image, step, size);
        },
        [](float* s) { *s *= kConstants[1]; });
    const auto test = [](const char* name, int samples, int missing, auto call, auto operation) {
        ExpectInPlace<float>(
            name, {4, 12, missing},
            [&](float* image, int step, IppiSize size) {
                return call(kConstants, image, step, size);
            },
            [&](float* s) {
                for (int c = 0; c < samples; ++c) s[c] = operation(s[c], kConstants[c]);
            });
    };
    const auto product = [](float a, float b) { return a * b; };
    const auto sum = [](float a, float b) { return a + b; };
    test("MulC_C4", 4, 0, ippiMulC_32f_C4IR, product);
    for (const int missing : {0, 1}) {
        test("MulC_AC4", 3, missing, ippiMulC_32f_AC4IR, product);
        test("AddC_AC4", 3, missing, ippiAddC_32f_AC4IR, sum);
    }
}

TEST(ArithmeticFloat, ConstantsToAnotherImage) {
    const auto test = [](const char* name, int missing, auto call, auto operation) {
        ExpectPerPixel<float, float>(
            name, {4, 12, missing}, {4, 20, missing},
            [&](const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
                return call(kConstants, src, srcStep, dst, dstStep, size);
            },
            [&](const float* from, float* to) {
                for (int c = 0; c < 3; ++c) to[c] = operation(from[c], kConstants[c]);
            });
    };
    for (const int missing : {0, 1}) {
        test("MulC_AC4", missing, ippiMulC_32f_AC4R, [](float a, float b) { return a * b; });
        test("AddC_AC4", missing, ippiAddC_32f_AC4R, [](float a, float b) { return a + b; });
    }
}

TEST(ArithmeticFloat, SquareAndRoot) {
    const auto test = [](const char* name, auto call, auto operation, float low) {
        ExpectInPlace<float>(
            name, {4}, call,
            [&](float* s) {
                for (int c = 0; c < 4; ++c) s[c] = operation(s[c]);
            },
            low, 3.0f);
    };
    test(
        "Sqr", ippiSqr_32f_C4IR, [](float v) { return v * v; }, -3.0f);
    test(
        "Sqrt", ippiSqrt_32f_C4IR, [](float v) { return std::sqrt(v); }, 0.0f);
}

TEST(ArithmeticFloat, Statuses) {
    float pixel[4] = {};
    const IppiSize one{1, 1};
    EXPECT_EQ(ippiMulC_32f_C4IR(nullptr, pixel, 16, one), kStatusNullPointer);
    EXPECT_EQ(ippiMulC_32f_AC4IR(nullptr, pixel, 16, one), kStatusNullPointer);
    EXPECT_EQ(ippiAddC_32f_AC4R(nullptr, pixel, 16, pixel, 16, one), kStatusNullPointer);
    EXPECT_EQ(ippiAddC_32f_AC4R(kConstants, pixel, 15, pixel, 16, one), kStatusStepError);
    EXPECT_EQ(ippiAddC_32f_AC4R(kConstants, pixel, 16, pixel, 15, one), kStatusStepError);
    EXPECT_EQ(ippiSqrt_32f_C4IR(pixel, 16, {1, -1}), kStatusSizeError);
}

}  // namespace
}  // namespace brushworks
