// Bodies of the filters with fixed kernels; built once for each variant. All sums fit 16 bits, and
// integers give what float arithmetic would: eighths are exact, and a mean over an odd count of
// samples is never a tie.
//
// A row is treated in pieces: the samples of the mask's rows are added up per column, then the
// columns beside each other.
#include "primitives/filter_fixed.h"

#include "primitives/pixel_loops.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr int kPiece = 1024;  // samples; the sums of a piece stay in the first cache

/// Column sums of `Rows` rows around row `from`.
template <int Rows>
inline void AddRows(const std::uint8_t* from, int step, int samples, std::uint16_t* sums) {
    const std::uint8_t* row[Rows];
    for (int j = 0; j < Rows; ++j) row[j] = Row(from, step, j - Rows / 2);
    for (int i = 0; i < samples; ++i) {
        unsigned sum = 0;
        for (int j = 0; j < Rows; ++j) sum += row[j][i];
        sums[i] = static_cast<std::uint16_t>(sum);
    }
}

/// The nearest integer to sum / count, in 16-bit products whose upper half the compiler takes.
template <int Count>
constexpr std::uint8_t Mean(std::uint16_t sum) {
    static_assert(Count == 9 || Count == 25);
    const std::uint32_t rounded = sum + Count / 2u;
    if constexpr (Count == 9)
        return static_cast<std::uint8_t>(rounded * 7282 >> 16);
    else
        return static_cast<std::uint8_t>(rounded * 5243 >> 17);
}
template <int Count>
constexpr bool MeanIsExact() {
    for (int sum = 0; sum <= 255 * Count; ++sum)
        if (Mean<Count>(static_cast<std::uint16_t>(sum)) != (sum + Count / 2) / Count) return false;
    return true;
}
static_assert(MeanIsExact<9>() && MeanIsExact<25>());

template <int Side>
void Lowpass(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size) {
    constexpr int kHalf = Side / 2;
    std::uint16_t sums[kPiece + Side - 1];
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; x += kPiece) {
            const int samples = size.width - x < kPiece ? size.width - x : kPiece;
            AddRows<Side>(Row(src, srcStep, y) + x - kHalf, srcStep, samples + Side - 1, sums);
            std::uint8_t* to = Row(dst, dstStep, y) + x;
            for (int i = 0; i < samples; ++i) {
                unsigned sum = 0;
                for (int j = 0; j < Side; ++j) sum += sums[i + j];
                to[i] = Mean<Side * Side>(static_cast<std::uint16_t>(sum));
            }
        }
}

/// Eighths to the nearest integer, ties to even, cut to a byte.
inline std::uint8_t FromEighths(int v) {
    const int rounded = (v + 3 + (v >> 3 & 1)) >> 3;
    return static_cast<std::uint8_t>(rounded < 0 ? 0 : rounded > 255 ? 255 : rounded);
}

}  // namespace

int ippiFilterSharpen_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                              IppiSize size) {
    if (const int status = CheckImages({Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep)}, size))
        return status;
    // The fourth sample of the pixel behind the last one is not read.
    constexpr int kMissing = 1;
    std::uint16_t sums[kPiece + 8];
    std::uint8_t sharp[kPiece] = {};
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; x += kPiece / 4) {
            const int pixels = size.width - x < kPiece / 4 ? size.width - x : kPiece / 4;
            const int samples = 4 * pixels - kMissing;
            const std::uint8_t* from = Row(src, srcStep, y) + std::ptrdiff_t{4} * x;
            std::uint8_t* to = Row(dst, dstStep, y) + std::ptrdiff_t{4} * x;
            AddRows<3>(from - 4, srcStep, samples + 8, sums);
            for (int i = 0; i < samples; ++i)
                sharp[i] = FromEighths(17 * from[i] - (sums[i] + sums[i + 4] + sums[i + 8]));
            MapPixels<kLanes>(
                pixels, [](U8 pixel, U8 old) { return KeepFourth(pixel, old); }, Colours(to),
                Colours(static_cast<const std::uint8_t*>(sharp)), Colours(to));
        }
    return kStatusOk;
}

int ippiFilterLowpass_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                             IppiSize size, int mask) {
    if (const int status = CheckImages({Pixels<1>(src, srcStep), Pixels<1>(dst, dstStep)}, size))
        return status;
    if (mask == kMask3x3)
        Lowpass<3>(src, srcStep, dst, dstStep, size);
    else if (mask == kMask5x5)
        Lowpass<5>(src, srcStep, dst, dstStep, size);
    else
        return kStatusBadArgument;
    return kStatusOk;
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
