// Bodies of the general filters; built once for each variant.
#include "primitives/filter_general.h"

#include "primitives/window_lines.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// A source that stands at the first position of the first window, and what becomes of the sums.
template <class Sample>
struct Picture {
    const Sample* src;
    int srcStep;
    Sample* dst;
    int dstStep;
    IppiSize size;
};

template <class Sample>
inline void StoreRow(const Picture<Sample>& picture, int y, std::ptrdiff_t x, std::ptrdiff_t count,
                     const float* sums) {
    Sample* to = Row(picture.dst, picture.dstStep, y) + x;
    if constexpr (sizeof(Sample) == 1)
        StoreSums<false>(sums, count, to, [](F32 v) { return R8(v); });
    else
        StoreSums<false>(sums, count, to);
}

template <int Channels, class Sample>
Extent ExtentOf(const Picture<Sample>& picture, IppiSize kernelSize) {
    return {static_cast<std::ptrdiff_t>(picture.size.width) * Channels, picture.size.height,
            std::ptrdiff_t{picture.size.height} + kernelSize.height - 1};
}

/// All products of the window. `taps` are the weights in the order in which the source meets them.
template <int Channels, class Sample>
int FilterDirectly(const Picture<Sample>& picture, const float* taps, IppiSize kernelSize) {
    return SlideWindow<FloatLanes>(
        ExtentOf<Channels>(picture, kernelSize),
        {taps, kernelSize.height, kernelSize.width, Channels, 1},
        [&](int line, std::ptrdiff_t x, std::ptrdiff_t count, float* to) {
            ToFloatLanes(Row(picture.src, picture.srcStep, line) + x, count, to);
        },
        [&](int y, std::ptrdiff_t x, std::ptrdiff_t count, const float* sums) {
            StoreRow(picture, y, x, count, sums);
        });
}

/// A row pass as the lines are made, and a column pass over its sums.
template <int Channels, class Sample>
int FilterInTwoPasses(const Picture<Sample>& picture, const float* row, const float* column,
                      IppiSize kernelSize) {
    const Window<float> rowWindow{row, 1, kernelSize.width, Channels, 1};
    const std::ptrdiff_t halo = static_cast<std::ptrdiff_t>(kernelSize.width - 1) * Channels;
    const std::ptrdiff_t most = kMostStripLanes + halo;
    const Scratch memory(static_cast<std::size_t>(most) * sizeof(float));
    float* const samples = memory.as<float>();
    if (!samples) return kStatusNoMemory;
    return SlideWindow<FloatLanes>(
        ExtentOf<Channels>(picture, kernelSize), {column, kernelSize.height, 1, Channels, 1},
        [&](int line, std::ptrdiff_t x, std::ptrdiff_t count, float* to) {
            ToFloatLanes(Row(picture.src, picture.srcStep, line) + x, count + halo, samples);
            SumLines<FloatLanes, 1, 8>(&samples, rowWindow, &to, WholeBlocks(count));
        },
        [&](int y, std::ptrdiff_t x, std::ptrdiff_t count, const float* sums) {
            StoreRow(picture, y, x, count, sums);
        });
}

/// Two passes cost about five products more than their taps, for the sums in between.
bool IsWorthTwoPasses(IppiSize size) {
    return size.width >= 3 && size.height >= 3 &&
           std::int64_t{size.width} * size.height >= size.width + size.height + 5;
}

double Magnitude(double v) {
    return v < 0 ? -v : v;
}

/// Splits a matrix into column times row, the row being that of the largest element, if each
/// element is met to 2^-19 and the sum of all to 2^-22. Rounding alone puts the elements of a
/// Gaussian, which is such a product, up to about 2^-20 away. False with any element that is not
/// finite.
bool Split(const float* taps, IppiSize size, float* row, float* column) {
    const std::ptrdiff_t width = size.width;
    int pivotX = 0, pivotY = 0;
    float largest = 0.0f;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            if (const float v = __builtin_fabsf(taps[y * width + x]); v > largest) {
                largest = v;
                pivotX = x;
                pivotY = y;
            }
    const double pivot = taps[pivotY * width + pivotX];
    for (int x = 0; x < size.width; ++x) row[x] = taps[pivotY * width + x];
    double off = 0, all = 0;
    for (int y = 0; y < size.height; ++y) {
        column[y] = static_cast<float>(taps[y * width + pivotX] / pivot);
        for (int x = 0; x < size.width; ++x) {
            const double tap = taps[y * width + x];
            const double difference = Magnitude(double{column[y]} * row[x] - tap);
            if (!(difference <= Magnitude(tap) * 0x1p-19)) return false;
            off += difference;
            all += Magnitude(tap);
        }
    }
    return off <= all * 0x1p-22;
}

template <int Channels, class Sample>
int Filter(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size,
           const float* kernel, IppiSize kernelSize, IppiPoint anchor) {
    if (!src || !dst || !kernel) return kStatusNullPointer;
    if (size.width < 1 || size.height < 1 || kernelSize.width < 1 || kernelSize.height < 1)
        return kStatusSizeError;
    if (const int status =
            CheckImages({Pixels<Channels>(src, srcStep), Pixels<Channels>(dst, dstStep)}, size))
        return status;
    if (anchor.x < 0 || anchor.x >= kernelSize.width || anchor.y < 0 ||
        anchor.y >= kernelSize.height)
        return kStatusBadArgument;

    const std::ptrdiff_t left = kernelSize.width - 1 - anchor.x;
    const Picture<Sample> picture{
        Row(src, srcStep, anchor.y + 1 - kernelSize.height) - left * Channels, srcStep, dst,
        dstStep, size};
    const auto count =
        static_cast<std::size_t>(kernelSize.width) * static_cast<std::size_t>(kernelSize.height);
    const std::size_t sides =
        static_cast<std::size_t>(kernelSize.width) + static_cast<std::size_t>(kernelSize.height);
    const Scratch memory((count + sides) * sizeof(float));
    float* const taps = memory.as<float>();
    if (!taps) return kStatusNoMemory;
    for (std::size_t i = 0; i < count; ++i) taps[i] = kernel[count - 1 - i];
    float *const row = taps + count, *const column = row + kernelSize.width;
    if (IsWorthTwoPasses(kernelSize) && Split(taps, kernelSize, row, column))
        return FilterInTwoPasses<Channels>(picture, row, column, kernelSize);
    return FilterDirectly<Channels>(picture, taps, kernelSize);
}

}  // namespace

int ippiFilter32f_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const float* kernel, IppiSize kernelSize,
                         IppiPoint anchor) {
    return Filter<1>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor);
}

int ippiFilter32f_8u_C3R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const float* kernel, IppiSize kernelSize,
                         IppiPoint anchor) {
    return Filter<3>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor);
}

int ippiFilter32f_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const float* kernel, IppiSize kernelSize,
                         IppiPoint anchor) {
    return Filter<4>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor);
}

int ippiFilter_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                       const float* kernel, IppiSize kernelSize, IppiPoint anchor) {
    return Filter<4>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
