// The smoothing where the weights of all taps add up to 65536 or so, which holds a picture however
// many taps there are.
//
// A sample and the tap behind it lie together in a lane of 32 bits, so that one instruction weighs
// and adds both. What a difference of samples weighs is looked up in registers.
#pragma once

#include "primitives/simd.h"
#include "primitives/smooth.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// 256 weights, looked up a vector at a time. Behind some difference most kernels weigh nothing, so
/// that the first Parts of 64 are enough: the last of their weights is 0, or they are all four.
template <int Parts>
class RangeTable {
  public:
    static constexpr int kPart = 64;

    explicit RangeTable(const int* weights);

    /// The weights, times 256, of two vectors of differences from 0 to 255.
    void LookUp(U16& a, U16& b) const;

  private:
    static constexpr std::uint8_t kLast = Parts * kPart - 1;

#if defined(__AVX512BW__)
    U16 words_[Parts][2];
#elif defined(__SSSE3__)
    static constexpr int kRow = 16, kRows = Parts * kPart / kRow;
    static constexpr int kHalf = 128 / kRow, kSteps = kPart / kRow;
    U8 changes_[kRows];
#else
    std::uint16_t words_[256];
#endif
};

#if defined(__AVX512BW__)

template <int Parts>
RangeTable<Parts>::RangeTable(const int* weights) {
    std::uint16_t words[Parts * kPart];
    for (int i = 0; i < Parts * kPart; ++i) words[i] = static_cast<std::uint16_t>(weights[i] << 8);
    std::memcpy(words_, words, sizeof words);
}

template <int Parts>
inline void RangeTable<Parts>::LookUp(U16& a, U16& b) const {
    for (U16* v : {&a, &b}) {
        const U16 difference = Min(*v, U16{} + kLast);
        U16 weight = PickOfTwo(words_[0][0], words_[0][1], difference);
        for (int part = 1; part < Parts; ++part)
            weight = difference >= static_cast<std::uint16_t>(part * kPart)
                         ? PickOfTwo(words_[part][0], words_[part][1], difference)
                         : weight;
        *v = weight;
    }
}

#elif defined(__SSSE3__)

/// A byte meets the rows of its half of the table one after the other, and takes part until its
/// difference falls below 0: what changes from row to row makes up its weight.
template <int Parts>
RangeTable<Parts>::RangeTable(const int* weights) {
    for (int row = 0; row < kRows; ++row) {
        std::uint8_t copies[kVectorBytes];
        for (int i = 0; i < kVectorBytes; ++i) {
            const int* weight = weights + row * kRow + i % kRow;
            copies[i] = static_cast<std::uint8_t>(row % kHalf ? *weight ^ weight[-kRow] : *weight);
        }
        changes_[row] = Load<U8>(copies);
    }
}

template <int Parts>
inline void RangeTable<Parts>::LookUp(U16& a, U16& b) const {
    const U8 difference = Min((U8)(a | b << 8), U8{} + kLast);
    U8 weights{};
    U8 left{};
    for (int row = 0; row < kRows; ++row) {
        // Most neighbours differ by less than there are steps in a part.
        if (row % kSteps == 0 && row > 0 && !AnyFrom(difference, row * kRow)) break;
        // The bytes of the other half are below 0, and stay there.
        left = row % kHalf ? CutDifference(left, U8{} + static_cast<std::uint8_t>(kRow))
                           : difference - static_cast<std::uint8_t>(row * kRow);
        weights ^= PickOfSixteen(changes_[row], left);
    }
    a = (U16)weights << 8;
    b = (U16)weights & 0xFF00;
}

#else

template <int Parts>
RangeTable<Parts>::RangeTable(const int* weights) {
    for (int i = 0; i < 256; ++i) words_[i] = static_cast<std::uint16_t>(weights[i] << 8);
}

template <int Parts>
inline void RangeTable<Parts>::LookUp(U16& a, U16& b) const {
    for (U16* v : {&a, &b}) {
        std::uint16_t lanes[kVectorBytes / 2];
        Store(lanes, *v);
        for (std::uint16_t& lane : lanes) lane = words_[lane];
        *v = Load<U16>(lanes);
    }
}

#endif

/// |p - c| of samples from 0 to 255.
inline U16 Apart(I16 p, I16 c) {
    const I16 difference = p - c;
    return (U16)(difference < 0 ? -difference : difference);
}

template <int Parts>
class FineSmoother {
    // As many as there are registers for.
#if defined(__AVX512BW__)
    static constexpr int kVectors = 4;
#else
    static constexpr int kVectors = 2;
#endif

  public:
    static constexpr int kBlock = kVectors * kLanes;
    using Item = std::uint32_t;

    static void Take(const std::uint8_t* samples, const std::uint8_t* next, std::ptrdiff_t count,
                     Item* items) {
        for (std::ptrdiff_t i = 0; i < count; ++i)
            items[i] = samples[i] | static_cast<std::uint32_t>(next[i]) << 16;
    }

    explicit FineSmoother(const SmoothWeights& weights) : range_(weights.range) {}

    /// False where the weights leave their domain.
    bool Open(const SmoothWeights& weights) {
        // Lanes hold the weights of every other tap, and count up to 65535.
        std::int64_t sums[2] = {};
        radius_ = weights.radius;
        for (int tap = 0; tap <= 2 * radius_; ++tap) {
            const int spatial = weights.spatial[tap <= radius_ ? tap : 2 * radius_ - tap];
            if (spatial < 0 || spatial > kLargestWeight) return false;
            sums[tap % 2] += spatial;
            const auto weight = static_cast<std::uint32_t>(spatial);
            pair_[tap / 2] = tap % 2 ? pair_[tap / 2] | weight << 16 : weight;
        }
        return sums[0] <= 65535 && sums[1] <= 65535;
    }

    [[gnu::noinline]] void Means(const Item* centre, std::ptrdiff_t pitch,
                                 std::uint8_t* means) const {
        I16 c[kVectors];
        U16 weights[kVectors] = {};
        I32 sums[kVectors] = {};
        for (int v = 0; v < kVectors; ++v) c[v] = InBothHalves(Load<U32>(centre + v * kLanes));
        const Item* taps = centre - radius_ * pitch;
        for (int i = 0; i <= radius_; ++i, taps += 2 * pitch) {
            const auto spatial = (U16)(U32{} + pair_[i]);
            I16 p[kVectors];
            U16 weight[kVectors];
            for (int v = 0; v < kVectors; ++v) {
                p[v] = Load<I16>(taps + v * kLanes);
                weight[v] = Apart(p[v], c[v]);
            }
            for (int v = 0; v < kVectors; v += 2) range_.LookUp(weight[v], weight[v + 1]);
            for (int v = 0; v < kVectors; ++v) {
                weight[v] = UpperProduct(weight[v], spatial);
                weights[v] += weight[v];
                sums[v] += SumOfPairs(p[v], (I16)weight[v]);
            }
        }
        I32 quotients[4];
        for (int v = 0; v < 4; ++v)
            quotients[v] = Quotients(sums[v % kVectors], weights[v % kVectors]);
        const U8 bytes = NarrowToBytes(quotients[0], quotients[1], quotients[2], quotients[3]);
        std::memcpy(means, &bytes, kBlock);
    }

  private:
    static constexpr int kLargestWeight = 32767;

    static I16 InBothHalves(U32 items) {
        const U32 samples = items & 0xFFFF;
        return (I16)(samples | samples << 16);
    }

    /// Rounded down: a float quotient is at most one off, as the rest tells.
    static I32 Quotients(I32 sums, U16 weights) {
        const auto pairs = (U32)weights;
        const I32 divisor = (I32)((pairs & 0xFFFF) + (pairs >> 16)) + kFineSmoothUnit;
        const I32 quotient = ToInt(ToFloat(sums) / ToFloat(divisor));
        const I32 rest = sums - quotient * divisor;
        return quotient + (rest < 0) - (rest >= divisor);  // a true comparison is -1
    }

    RangeTable<Parts> range_;
    int radius_ = 0;
    std::uint32_t pair_[kLargestSmoothRadius + 1];
};

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
