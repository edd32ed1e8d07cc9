// Bodies of the filters along one axis; built once for each variant.
#include "primitives/filter_row_column.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

enum class Axis { kRow, kColumn };

/// The sum `kernel[n - 1 - j] * at[j * stride bytes]` over all taps, in order.
template <class Sum, class Sample, class Weight>
inline Sum Convolve(const Sample* at, std::ptrdiff_t stride, const Weight* kernel, int n) {
    Sum sum = 0;
    for (int j = 0; j < n; ++j) {
        const Sample sample = *reinterpret_cast<const Sample*>(
            reinterpret_cast<const std::uint8_t*>(at) + j * stride);
        sum += static_cast<Sum>(kernel[n - 1 - j]) * static_cast<Sum>(sample);
    }
    return sum;
}

inline std::uint8_t Round(float v) {
    if (!(v > 0.0f)) return 0;
    if (v >= 255.0f) return 255;
    return static_cast<std::uint8_t>(__builtin_rintf(v));
}

inline std::uint8_t Divide(std::int64_t sum, int divisor) {
    if (divisor > 0 && (divisor & (divisor - 1)) == 0) {
        if (sum <= 0) return 0;
        const int shift = __builtin_ctz(static_cast<unsigned>(divisor));
        const std::uint64_t value = static_cast<std::uint64_t>(sum);
        const std::uint64_t half = (std::uint64_t{1} << shift) >> 1;
        const std::uint64_t odd = shift ? value >> shift & 1 : 1;
        const std::uint64_t rounded = (value + half - (half ? 1 - odd : 0)) >> shift;
        return rounded > 255 ? 255 : static_cast<std::uint8_t>(rounded);
    }
    return Round(static_cast<float>(sum) * (1.0f / static_cast<float>(divisor)));
}

template <Axis axis, int Channels, int Written, class Sample, class Weight>
int Filter(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size,
           const Weight* kernel, int n, int anchor, int divisor) {
    constexpr int kPixelBytes = Channels * int{sizeof(Sample)};
    if (!src || !dst || !kernel) return kStatusNullPointer;
    if (size.width < 1 || size.height < 1 || n < 1) return kStatusSizeError;
    if (divisor == 0) return kStatusDivideByZero;
    const std::int64_t read = std::int64_t{size.width} + (axis == Axis::kRow ? n - 1 : 0);
    if (srcStep < 1 || srcStep < read * kPixelBytes || dstStep < 1 ||
        dstStep < std::int64_t{size.width} * kPixelBytes)
        return kStatusStepError;
    if (anchor < 0 || anchor >= n) return kStatusBadArgument;

    const std::ptrdiff_t stride = axis == Axis::kRow ? kPixelBytes : srcStep;
    const std::ptrdiff_t before = stride * (n - 1 - anchor);
    for (int y = 0; y < size.height; ++y) {
        const auto* from = reinterpret_cast<const Sample*>(
            reinterpret_cast<const std::uint8_t*>(Row(src, srcStep, y)) - before);
        Sample* to = Row(dst, dstStep, y);
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < Written; ++c) {
                const int i = Channels * x + c;
                if constexpr (sizeof(Sample) == 1)
                    to[i] = Divide(static_cast<std::int64_t>(
                                       Convolve<std::uint64_t>(from + i, stride, kernel, n)),
                                   divisor);
                else
                    to[i] = Convolve<float>(from + i, stride, kernel, n);
            }
    }
    return kStatusOk;
}

}  // namespace

int ippiFilterRow_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                         int divisor) {
    return Filter<Axis::kRow, 1, 1>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                    divisor);
}

int ippiFilterRow_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                         int divisor) {
    return Filter<Axis::kRow, 4, 4>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                    divisor);
}

int ippiFilterRow_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                          IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                          int divisor) {
    return Filter<Axis::kRow, 4, 3>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                    divisor);
}

int ippiFilterRow_32f_C1R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                          const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kRow, 1, 1>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                    1);
}

int ippiFilterRow_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                          const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kRow, 4, 4>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                    1);
}

int ippiFilterRow_32f_AC4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                           const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kRow, 4, 3>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                    1);
}

int ippiFilterColumn_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                            int divisor) {
    return Filter<Axis::kColumn, 1, 1>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                       divisor);
}

int ippiFilterColumn_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                            int divisor) {
    return Filter<Axis::kColumn, 4, 4>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                       divisor);
}

int ippiFilterColumn_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                             IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                             int divisor) {
    return Filter<Axis::kColumn, 4, 3>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                       divisor);
}

int ippiFilterColumn_32f_C1R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                             const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kColumn, 1, 1>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                       1);
}

int ippiFilterColumn_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                             const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kColumn, 4, 4>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                       1);
}

int ippiFilterColumn_32f_AC4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                              const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kColumn, 4, 3>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                       1);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
