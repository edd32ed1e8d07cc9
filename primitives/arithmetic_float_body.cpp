// Bodies of the float arithmetic; built once for each variant.
#include "primitives/arithmetic_float.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

const auto kProduct = [](float sample, float constant) { return sample * constant; };
const auto kSum = [](float sample, float constant) { return sample + constant; };

template <int Channels>
int Add(const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const float* a, float* b) {
            for (std::ptrdiff_t i = 0; i < Channels * pixels; ++i) b[i] = a[i] + b[i];
        },
        Pixels<Channels>(src, srcStep), Pixels<Channels>(dst, dstStep));
}

/// dst = operation(src, constant) on the first three samples. Works in place too.
template <class Operation>
int WithColourConstants(const float constants[3], const float* src, int srcStep, float* dst,
                        int dstStep, IppiSize size, Operation operation) {
    if (!constants) return kStatusNullPointer;
    const float c0 = constants[0], c1 = constants[1], c2 = constants[2];
    return ForRows(
        size,
        [=](std::ptrdiff_t pixels, const float* from, float* to) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x) {
                to[4 * x] = operation(from[4 * x], c0);
                to[4 * x + 1] = operation(from[4 * x + 1], c1);
                to[4 * x + 2] = operation(from[4 * x + 2], c2);
            }
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

/// Each of the four samples becomes operation(sample).
template <class Operation>
int OnEachSample(float* image, int step, IppiSize size, Operation operation) {
    return ForRows(
        size,
        [operation](std::ptrdiff_t pixels, float* row) {
            for (std::ptrdiff_t i = 0; i < 4 * pixels; ++i) row[i] = operation(row[i]);
        },
        Pixels<4>(image, step));
}

}  // namespace

int ippiAdd_32f_C1IR(const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
    return Add<1>(src, srcStep, dst, dstStep, size);
}

int ippiAdd_32f_C4IR(const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
    return Add<4>(src, srcStep, dst, dstStep, size);
}

int ippiMulC_32f_C1IR(float constant, float* image, int step, IppiSize size) {
    return ForRows(
        size,
        [constant](std::ptrdiff_t pixels, float* row) {
            for (std::ptrdiff_t i = 0; i < pixels; ++i) row[i] *= constant;
        },
        Pixels<1>(image, step));
}

int ippiMulC_32f_C4IR(const float constants[4], float* image, int step, IppiSize size) {
    if (!constants) return kStatusNullPointer;
    const float c0 = constants[0], c1 = constants[1], c2 = constants[2], c3 = constants[3];
    return ForRows(
        size,
        [=](std::ptrdiff_t pixels, float* row) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x) {
                row[4 * x] *= c0;
                row[4 * x + 1] *= c1;
                row[4 * x + 2] *= c2;
                row[4 * x + 3] *= c3;
            }
        },
        Pixels<4>(image, step));
}

int ippiMulC_32f_AC4IR(const float constants[3], float* image, int step, IppiSize size) {
    return WithColourConstants(constants, image, step, image, step, size, kProduct);
}

int ippiMulC_32f_AC4R(const float constants[3], const float* src, int srcStep, float* dst,
                      int dstStep, IppiSize size) {
    return WithColourConstants(constants, src, srcStep, dst, dstStep, size, kProduct);
}

int ippiAddC_32f_AC4IR(const float constants[3], float* image, int step, IppiSize size) {
    return WithColourConstants(constants, image, step, image, step, size, kSum);
}

int ippiAddC_32f_AC4R(const float constants[3], const float* src, int srcStep, float* dst,
                      int dstStep, IppiSize size) {
    return WithColourConstants(constants, src, srcStep, dst, dstStep, size, kSum);
}

int ippiSqr_32f_C4IR(float* image, int step, IppiSize size) {
    return OnEachSample(image, step, size, [](float sample) { return sample * sample; });
}

int ippiSqrt_32f_C4IR(float* image, int step, IppiSize size) {
    return OnEachSample(image, step, size, [](float sample) { return __builtin_sqrtf(sample); });
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
