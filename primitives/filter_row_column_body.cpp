// Bodies of the filters along one axis; built once for each variant.
#include "primitives/filter_row_column.h"

#include "primitives/window_lines.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

enum class Axis { kRow, kColumn };

/// The arguments of a call. `src` stands at the first sample that the first output meets.
template <class Sample>
struct Call {
    const Sample* src;
    int srcStep;
    Sample* dst;
    int dstStep;
    IppiSize size;
    const std::conditional_t<sizeof(Sample) == 1, std::int32_t, float>* kernel;
    int kernelSize;
};

/// Samples of a row's outputs: all, or without the fourth of the last pixel, which may not exist.
template <int Channels, bool KeepsFourth>
std::ptrdiff_t SampleCount(IppiSize size) {
    return static_cast<std::ptrdiff_t>(size.width) * Channels - (KeepsFourth ? 1 : 0);
}

template <Axis axis, int Channels, bool KeepsFourth>
int FilterFloats(const Call<float>& call) {
    const int n = call.kernelSize;
    const Scratch memory(static_cast<std::size_t>(n) * sizeof(float));
    float* const taps = memory.as<float>();
    if (!taps) return kStatusNoMemory;
    for (int j = 0; j < n; ++j) taps[j] = call.kernel[n - 1 - j];

    constexpr bool kRow = axis == Axis::kRow;
    const auto samples = SampleCount<Channels, KeepsFourth>(call.size);
    const std::ptrdiff_t lineCount = call.size.height + std::ptrdiff_t{kRow ? 0 : n - 1};
    return SlideWindow<FloatLanes>(
        {samples, call.size.height, lineCount}, {taps, kRow ? 1 : n, kRow ? n : 1, Channels, 1},
        [&](int line, std::ptrdiff_t x, std::ptrdiff_t count, float* to) {
            ToFloatLanes(Row(call.src, call.srcStep, line) + x, count, to);
        },
        [&](int y, std::ptrdiff_t x, std::ptrdiff_t count, const float* sums) {
            StoreSums<KeepsFourth>(sums, count, Row(call.dst, call.dstStep, y) + x);
        });
}

/// A divisor of 1: sums are cut.
struct Cut {
    I32 operator()(I32 sum) const { return Min(Max(sum, I32{}), I32{} + 255); }
};
/// A power of 2: shifted with ties to even, then cut. Sums lie below 2^30, so that nothing
/// overflows.
struct Shift {
    int shift;
    I32 operator()(I32 sum) const {
        return Cut{}((sum + ((1 << (shift - 1)) - 1) + (sum >> shift & 1)) >> shift);
    }
};
/// Any other divisor.
struct Multiply {
    float factor;
    I32 operator()(I32 sum) const { return R8(ToFloat(sum) * factor); }
};

bool IsPowerOf2(int divisor) {
    return divisor > 0 && (divisor & (divisor - 1)) == 0;
}

/// True where 16-bit products and 32-bit sums hold everything: each weight fits 16 bits and no sum
/// exceeds 2^30.
bool FitsPairs(const std::int32_t* kernel, int n) {
    std::int64_t largest = 0;
    for (int j = 0; j < n; ++j) {
        if (kernel[j] != static_cast<std::int16_t>(kernel[j])) return false;
        largest += 255 * (kernel[j] < 0 ? -kernel[j] : kernel[j]);
    }
    return largest <= 1 << 30;
}

/// Two taps meet two samples at once: neighbours in the row, or in the column.
template <Axis axis, int Channels, bool KeepsFourth, class ToByte>
int FilterPairs(const Call<std::uint8_t>& call, ToByte toByte) {
    const int n = call.kernelSize, pairs = n / 2 + n % 2;
    const Scratch memory(static_cast<std::size_t>(pairs) * sizeof(std::int32_t));
    std::int32_t* const taps = memory.as<std::int32_t>();
    if (!taps) return kStatusNoMemory;
    for (int j = 0; j < n; ++j)
        taps[j / 2] |= static_cast<std::int32_t>(
            static_cast<std::uint32_t>(call.kernel[n - 1 - j] & 0xFFFF) << j % 2 * 16);

    constexpr bool kRow = axis == Axis::kRow;
    const auto samples = SampleCount<Channels, KeepsFourth>(call.size);
    const std::ptrdiff_t lineCount = call.size.height + std::ptrdiff_t{kRow ? 0 : n - 1};
    const std::ptrdiff_t readable =
        samples + (kRow ? static_cast<std::ptrdiff_t>(n - 1) * Channels : 0);
    return SlideWindow<PairLanes>(
        {samples, call.size.height, lineCount},
        {taps, kRow ? 1 : pairs, kRow ? pairs : 1, 2 * Channels, kRow ? 1 : 2},
        [&](int line, std::ptrdiff_t x, std::ptrdiff_t count, std::int32_t* to) {
            const std::uint8_t* from = Row(call.src, call.srcStep, line) + x;
            if constexpr (kRow)
                ToPairLanes(from, from + Channels, count, readable - x - Channels, to);
            else
                ToPairLanes(from, line + 1 < lineCount ? from + call.srcStep : from, count, count,
                            to);
        },
        [&](int y, std::ptrdiff_t x, std::ptrdiff_t count, const std::int32_t* sums) {
            StoreSums<KeepsFourth>(sums, count, Row(call.dst, call.dstStep, y) + x, toByte);
        });
}

inline std::uint8_t R8(float v) {
    if (!(v > 0.0f)) return 0;
    return v >= 255.0f ? 255 : static_cast<std::uint8_t>(__builtin_rintf(v));
}

std::uint8_t Divide(std::int64_t sum, int divisor) {
    if (!IsPowerOf2(divisor))
        return R8(static_cast<float>(sum) * (1.0f / static_cast<float>(divisor)));
    const int shift = __builtin_ctz(static_cast<unsigned>(divisor));
    if (sum <= 0) return 0;
    if (sum >> shift >= 255) return 255;
    const std::int64_t half = (std::int64_t{1} << shift) / 2;
    return static_cast<std::uint8_t>(shift ? (sum + half - 1 + (sum >> shift & 1)) >> shift : sum);
}

/// Weights of any size, sample by sample in 64 bits.
template <Axis axis, int Channels, bool KeepsFourth>
void FilterWild(const Call<std::uint8_t>& call, int divisor) {
    const std::ptrdiff_t stride = axis == Axis::kRow ? Channels : call.srcStep;
    for (int y = 0; y < call.size.height; ++y) {
        const std::uint8_t* from = Row(call.src, call.srcStep, y);
        std::uint8_t* to = Row(call.dst, call.dstStep, y);
        for (std::ptrdiff_t i = 0; i < SampleCount<Channels, KeepsFourth>(call.size); ++i) {
            if (KeepsFourth && i % 4 == 3) continue;
            std::uint64_t sum = 0;
            for (int j = 0; j < call.kernelSize; ++j)
                sum +=
                    static_cast<std::uint64_t>(std::int64_t{call.kernel[call.kernelSize - 1 - j]}) *
                    from[i + j * stride];
            to[i] = Divide(static_cast<std::int64_t>(sum), divisor);
        }
    }
}

template <Axis axis, int Channels, bool KeepsFourth>
int FilterBytes(const Call<std::uint8_t>& call, int divisor) {
    const auto inPairs = [&call](auto toByte) {
        return FilterPairs<axis, Channels, KeepsFourth>(call, toByte);
    };
    if (!FitsPairs(call.kernel, call.kernelSize)) {
        FilterWild<axis, Channels, KeepsFourth>(call, divisor);
        return kStatusOk;
    }
    if (divisor == 1) return inPairs(Cut{});
    if (IsPowerOf2(divisor)) return inPairs(Shift{__builtin_ctz(static_cast<unsigned>(divisor))});
    return inPairs(Multiply{1.0f / static_cast<float>(divisor)});
}

constexpr int kNoDivisor = 1;  // of float filters

template <Axis axis, int Channels, bool KeepsFourth, class Sample, class Weight>
int Filter(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size,
           const Weight* kernel, int n, int anchor, int divisor = kNoDivisor) {
    constexpr int kPixelBytes = Channels * int{sizeof(Sample)};
    if (!src || !dst || !kernel) return kStatusNullPointer;
    if (size.width < 1 || size.height < 1 || n < 1) return kStatusSizeError;
    if (divisor == 0) return kStatusDivideByZero;
    const std::int64_t read = std::int64_t{size.width} + (axis == Axis::kRow ? n - 1 : 0);
    if (srcStep < 1 || srcStep < read * kPixelBytes || dstStep < 1 ||
        dstStep < std::int64_t{size.width} * kPixelBytes)
        return kStatusStepError;
    if (anchor < 0 || anchor >= n) return kStatusBadArgument;

    const int before = n - 1 - anchor;
    const Sample* first = axis == Axis::kRow ? src - static_cast<std::ptrdiff_t>(before) * Channels
                                             : Row(src, srcStep, -before);
    const Call<Sample> call{first, srcStep, dst, dstStep, size, kernel, n};
    if constexpr (sizeof(Sample) == 1)
        return FilterBytes<axis, Channels, KeepsFourth>(call, divisor);
    else
        return FilterFloats<axis, Channels, KeepsFourth>(call);
}

}  // namespace

int ippiFilterRow_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                         int divisor) {
    return Filter<Axis::kRow, 1, false>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                        anchor, divisor);
}

int ippiFilterRow_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                         int divisor) {
    return Filter<Axis::kRow, 4, false>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                        anchor, divisor);
}

int ippiFilterRow_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                          IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                          int divisor) {
    return Filter<Axis::kRow, 4, true>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor,
                                       divisor);
}

int ippiFilterRow_32f_C1R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                          const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kRow, 1, false>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                        anchor);
}

int ippiFilterRow_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                          const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kRow, 4, false>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                        anchor);
}

int ippiFilterRow_32f_AC4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                           const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kRow, 4, true>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                       anchor);
}

int ippiFilterColumn_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                            int divisor) {
    return Filter<Axis::kColumn, 1, false>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                           anchor, divisor);
}

int ippiFilterColumn_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                            int divisor) {
    return Filter<Axis::kColumn, 4, false>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                           anchor, divisor);
}

int ippiFilterColumn_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                             IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                             int divisor) {
    return Filter<Axis::kColumn, 4, true>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                          anchor, divisor);
}

int ippiFilterColumn_32f_C1R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                             const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kColumn, 1, false>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                           anchor);
}

int ippiFilterColumn_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                             const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kColumn, 4, false>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                           anchor);
}

int ippiFilterColumn_32f_AC4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                              const float* kernel, int kernelSize, int anchor) {
    return Filter<Axis::kColumn, 4, true>(src, srcStep, dst, dstStep, size, kernel, kernelSize,
                                          anchor);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
