// Bodies of the edge-preserving smoothing; built once for each variant. How a block of samples is
// smoothed stands in two headers, of which the weights pick one; here is where the blocks lie.
#include "primitives/smooth.h"

#include "primitives/scratch.h"
#include "primitives/smooth_fine.h"
#include "primitives/smooth_steps.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Samples of a pixel that are smoothed; a fourth one is left alone, and left out meanwhile.
template <int Channels>
constexpr int kSamples = Channels == 4 ? 3 : 1;

/// Writes one byte more than there are samples where a fourth one is left out.
template <int Channels>
inline void Pack(const std::uint8_t* pixels, int count, std::uint8_t* samples) {
    if constexpr (Channels == 1)
        std::memcpy(samples, pixels, static_cast<std::size_t>(count));
    else
        for (std::ptrdiff_t i = 0; i < count; ++i)
            StorePixel(samples + 3 * i, LoadPixel(pixels + 4 * i));
}

/// Writes means through the tone table.
template <int Channels>
inline void Put(std::uint8_t* pixels, const std::uint8_t* means, int count,
                const std::uint8_t* tone) {
    std::uint8_t own[kSamples<Channels>];
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        for (int k = 0; k < kSamples<Channels>; ++k)
            own[k] = tone[means[kSamples<Channels> * i + k]];
        std::memcpy(pixels + Channels * i, own, sizeof own);
    }
}

/// Pixels of a row, or rows of a strip of columns, that are worked at a time.
constexpr int kRun = 1024, kRunRows = 256;

inline int Least(int a, int b) {
    return a < b ? a : b;
}
inline int Clamp(int i, int count) {
    return i < 0 ? 0 : i < count ? i : count - 1;
}

/// Copies the pixels from `first` on to `to`; those outside the row repeat its ends.
template <int Channels>
void CopyWidened(const std::uint8_t* row, int width, int first, int count, std::uint8_t* to) {
    const int inside = first < 0 ? Least(-first, count) : 0;
    const int outside = Least(count, width - first);
    for (int i = 0; i < inside; ++i) std::memcpy(to + Channels * i, row, Channels);
    if (outside > inside)
        std::memcpy(to + Channels * inside,
                    row + Channels * static_cast<std::ptrdiff_t>(first + inside),
                    static_cast<std::size_t>(outside - inside) * Channels);
    for (int i = outside; i < count; ++i)
        std::memcpy(to + Channels * i, row + Channels * static_cast<std::ptrdiff_t>(width - 1),
                    Channels);
}

template <int Channels, class Smoother>
int SmoothRows(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
               const Smoother& smoother, const SmoothWeights& weights) {
    constexpr int kPixel = kSamples<Channels>, kLine = kRun + 2 * kLargestSmoothRadius + 1;
    std::uint8_t widened[kLine * Channels], packed[kLine * kPixel + 1] = {};
    typename Smoother::Item line[kLine * kPixel + kVectorBytes] = {};
    std::uint8_t means[kRun * kPixel + kVectorBytes];
    const int radius = weights.radius;
    for (int y = 0; y < size.height; ++y) {
        const std::uint8_t* from = Row(src, srcStep, y);
        std::uint8_t* to = Row(dst, dstStep, y);
        for (int x = 0; x < size.width; x += kRun) {
            const int pixels = Least(kRun, size.width - x), taken = pixels + 2 * radius;
            CopyWidened<Channels>(from, size.width, x - radius, taken, widened);
            Pack<Channels>(widened, taken, packed);
            Smoother::Take(packed, packed + kPixel, std::ptrdiff_t{taken} * kPixel, line);
            for (int i = 0; i < pixels * kPixel; i += Smoother::kBlock)
                smoother.Means(line + radius * kPixel + i, kPixel, means + i);
            Put<Channels>(to + static_cast<std::ptrdiff_t>(x) * Channels, means, pixels,
                          weights.tone);
        }
    }
    return kStatusOk;
}

/// Strips of columns, a block wide, go through a buffer of their own: there the taps of a sample
/// lie close together however long the rows are.
template <int Channels, class Smoother>
int SmoothColumns(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                  IppiSize size, const Smoother& smoother, const SmoothWeights& weights) {
    using Item = typename Smoother::Item;
    constexpr int kBlock = Smoother::kBlock, kStrip = kBlock / kSamples<Channels>;
    const int radius = weights.radius;
    const Scratch memory((kRunRows + 2 * static_cast<std::size_t>(radius)) * kBlock * sizeof(Item));
    Item* const strip = memory.as<Item>();
    if (!strip) return kStatusNoMemory;
    std::uint8_t packed[2][kBlock] = {}, means[kVectorBytes];
    for (int x = 0; x < size.width; x += kStrip) {
        const int pixels = Least(kStrip, size.width - x);
        const std::ptrdiff_t offset = static_cast<std::ptrdiff_t>(x) * Channels;
        for (int y = 0; y < size.height; y += kRunRows) {
            const int rows = Least(kRunRows, size.height - y);
            const auto pack = [&](int i) {
                Pack<Channels>(Row(src, srcStep, Clamp(y + i - radius, size.height)) + offset,
                               pixels, packed[i % 2]);
            };
            pack(0);
            for (int i = 0; i < rows + 2 * radius; ++i) {
                pack(i + 1);
                Smoother::Take(packed[i % 2], packed[(i + 1) % 2], kBlock, strip + i * kBlock);
            }
            for (int i = 0; i < rows; ++i) {
                smoother.Means(strip + (radius + i) * kBlock, kBlock, means);
                Put<Channels>(Row(dst, dstStep, y + i) + offset, means, pixels, weights.tone);
            }
        }
    }
    return kStatusOk;
}

bool AreInDomain(const SmoothWeights& weights) {
    if (weights.radius < 0 || weights.radius > kLargestSmoothRadius) return false;
    for (int i = 0; i < 256; ++i)
        if (weights.range[i] < 0 || weights.range[i] > (i ? weights.range[i - 1] : 255))
            return false;
    return weights.unit == kSmoothUnit || weights.unit == kFineSmoothUnit;
}

/// Checks the arguments and calls smooth(smoother) with the one that the weights ask for.
template <int Channels, class Smooth>
int WithSmoother(const std::uint8_t* src, int srcStep, const std::uint8_t* dst, int dstStep,
                 IppiSize size, const SmoothWeights* weights, Smooth smooth) {
    if (!weights) return kStatusNullPointer;
    if (const int status =
            CheckImages({Pixels<Channels>(src, srcStep), Pixels<Channels>(dst, dstStep)}, size))
        return status;
    if (!AreInDomain(*weights)) return kStatusBadArgument;
    const auto run = [&](auto smoother) {
        return smoother.Open(*weights) ? smooth(smoother) : kStatusBadArgument;
    };
    if (weights->unit == kSmoothUnit) return run(StepSmoother());
    constexpr int kPart = RangeTable<4>::kPart;
    if (weights->range[kPart - 1] == 0) return run(FineSmoother<1>(*weights));
    if (weights->range[2 * kPart - 1] == 0) return run(FineSmoother<2>(*weights));
    if (weights->range[3 * kPart - 1] == 0) return run(FineSmoother<3>(*weights));
    return run(FineSmoother<4>(*weights));
}

template <int Channels>
int Rows(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
         const SmoothWeights* weights) {
    return WithSmoother<Channels>(
        src, srcStep, dst, dstStep, size, weights, [&](const auto& smoother) {
            return SmoothRows<Channels>(src, srcStep, dst, dstStep, size, smoother, *weights);
        });
}

template <int Channels>
int Columns(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
            const SmoothWeights* weights) {
    return WithSmoother<Channels>(
        src, srcStep, dst, dstStep, size, weights, [&](const auto& smoother) {
            return SmoothColumns<Channels>(src, srcStep, dst, dstStep, size, smoother, *weights);
        });
}

}  // namespace

int SmoothRows_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, const SmoothWeights* weights) {
    return Rows<1>(src, srcStep, dst, dstStep, size, weights);
}
int SmoothRows_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size, const SmoothWeights* weights) {
    return Rows<4>(src, srcStep, dst, dstStep, size, weights);
}
int SmoothColumns_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const SmoothWeights* weights) {
    return Columns<1>(src, srcStep, dst, dstStep, size, weights);
}
int SmoothColumns_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                          IppiSize size, const SmoothWeights* weights) {
    return Columns<4>(src, srcStep, dst, dstStep, size, weights);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
