// Bodies of the medians; built once for each variant.
//
// The smallest masks throw away extremes until one sample is left, for a vector of pixels at once.
// Small masks find the median bit by bit: it is the largest value that at most half of the samples
// lie below. Larger masks keep counts for each column of the mask and for
// the mask as a whole, so that a step of the mask costs one column in and one out whatever its
// size.
#include "primitives/median.h"

#include <cstdlib>

#include "primitives/pixel_loops.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// What a call is about; src is the sample under the first pixel of the mask at (0, 0).
struct Call {
    const std::uint8_t* src;
    int srcStep;
    std::uint8_t* dst;
    int dstStep;
    IppiSize size;
    IppiSize mask;
    int area() const { return mask.width * mask.height; }
};

/// Scratch memory of one call, aligned for vectors.
class Scratch {
  public:
    explicit Scratch(std::int64_t bytes) {
        if (bytes < PTRDIFF_MAX - 64)
            data_ = std::aligned_alloc(64, (static_cast<std::size_t>(bytes) + 63) / 64 * 64);
    }
    ~Scratch() { std::free(data_); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    void* data() const { return data_; }

  private:
    void* data_ = nullptr;
};

// --- small masks -------------------------------------------------------------------------------

/// Up to here searching by bits is faster than counting; its own counts fit bytes.
constexpr int kSmallArea = kVectorBytes;
constexpr int kBlock = kVectorBytes / 4;  ///< pixels of a vector

/// The medians of a vector of samples under a mask of any size, bit by bit. `from` is the first
/// sample under the mask of the first.
struct ByBits {
    IppiSize mask;

    U8 operator()(const std::uint8_t* from, int step) const {
        const U8 middle = U8{} + static_cast<std::uint8_t>(mask.width * mask.height / 2);
        U8 median{};
        for (int bit = 128; bit; bit >>= 1) {
            const U8 raised = median | static_cast<std::uint8_t>(bit);
            U8 below{};
            for (int y = 0; y < mask.height; ++y) {
                const std::uint8_t* row = Row(from, step, y);
                for (int x = 0; x < mask.width; ++x) below -= (U8)(Load<U8>(row + 4 * x) < raised);
            }
            median = below <= middle ? raised : median;
        }
        return median;
    }
};

/// The same under a square mask, by throwing away extremes: of any samples that are at least two
/// more than half, neither the least nor the greatest is needed. Those are exchanged for one that
/// was not yet looked at, until the middle one of three is the result.
template <int Side>
struct ByExtremes {
    U8 operator()(const std::uint8_t* from, int step) const {
        constexpr int kHeld = Side * Side / 2 + 2;
        U8 held[kHeld];
        for (int i = 0; i < kHeld; ++i) held[i] = Sample(from, step, i);
        return Middle<kHeld>(held, from, step);
    }

  private:
    static U8 Sample(const std::uint8_t* from, int step, int i) {
        return Load<U8>(Row(from, step, i / Side) + 4 * (i % Side));
    }
    static void Order(U8& a, U8& b) {
        const U8 least = Min(a, b);
        b = Max(a, b);
        a = least;
    }
    template <int Held>
    static U8 Middle(U8* held, const std::uint8_t* from, int step) {
        for (int i = 0; i < Held / 2; ++i) Order(held[i], held[Held - 1 - i]);
        for (int i = 1; i < (Held + 1) / 2; ++i) Order(held[0], held[i]);
        for (int i = Held / 2; i < Held - 1; ++i) Order(held[i], held[Held - 1]);
        if constexpr (Held == 3) {
            return held[1];
        } else {
            held[0] = Sample(from, step, Side * Side + 3 - Held);
            return Middle<Held - 1>(held, from, step);
        }
    }
};

/// Rows end with blocks that are taken through a copy, so that nothing behind the last sample is
/// touched.
template <int Medians, class OfBlock>
int SmallMedian(const Call& call, OfBlock medianOfBlock) {
    const IppiSize mask = call.mask;
    const int copyStep = 4 * (kBlock + mask.width);
    const Scratch copy(std::int64_t{copyStep} * mask.height);
    auto* const copied = static_cast<std::uint8_t*>(copy.data());
    if (!copied) return kStatusNoMemory;
    std::memset(copied, 0, static_cast<std::size_t>(copyStep) * mask.height);
    constexpr int kBehind = Medians < 4;
    for (int y = 0; y < call.size.height; ++y) {
        const std::uint8_t* from = Row(call.src, call.srcStep, y);
        std::uint8_t* to = Row(call.dst, call.dstStep, y);
        int x = 0;
        for (; x + kBlock + kBehind <= call.size.width; x += kBlock, from += kVectorBytes) {
            const U8 medians = medianOfBlock(from, call.srcStep);
            Store(to + 4 * x, Medians == 4 ? medians : KeepFourth(medians, Load<U8>(to + 4 * x)));
        }
        const int rest = call.size.width - x;
        if (rest == 0) continue;
        for (int j = 0; j < mask.height; ++j)
            std::memcpy(copied + copyStep * j, Row(from, call.srcStep, j),
                        static_cast<std::size_t>(4 * (rest + mask.width - 1) - kBehind));
        const U8 medians = medianOfBlock(copied, copyStep);
        std::uint8_t last[kVectorBytes];
        Store(last, medians);
        for (int i = 0; i < rest; ++i)
            for (int c = 0; c < Medians; ++c) to[4 * (x + i) + c] = last[4 * i + c];
    }
    return kStatusOk;
}

// --- large masks -------------------------------------------------------------------------------

// Counts are cumulative: entry k of sixteen says how many samples are k or less in their high or
// low half. The coarse ones count the high halves; for each high half, fine ones count the low
// halves of the samples that have it. Of the mask only the coarse counts follow each step; fine
// ones catch up when the median falls into their sixteenth.

/// Sixteen counts, in parts that fit registers.
template <class Count>
struct Counts {
    static constexpr int kBytes = 16 * sizeof(Count);
    static constexpr int kLanesOf = (kBytes < kVectorBytes ? kBytes : kVectorBytes) / sizeof(Count);
    static constexpr int kParts = 16 / kLanesOf;
    using Part = VectorOf<Count, kLanesOf>;
    Part parts[kParts];

    template <class Other>
    Counts& operator+=(const Counts<Other>& other) {
        for (int i = 0; i < kParts; ++i) parts[i] += PartOf(other, i);
        return *this;
    }
    template <class Other>
    Counts& operator-=(const Counts<Other>& other) {
        for (int i = 0; i < kParts; ++i) parts[i] -= PartOf(other, i);
        return *this;
    }
    /// How many of ascending counts are not above a rank, which lies below the last of them.
    int NotAbove(Count rank) const {
        if constexpr (sizeof(Count) == 2) {
#if defined(__AVX512BW__)
            return __builtin_ctz(
                _mm256_cmpgt_epi16_mask((__m256i)parts[0], _mm256_set1_epi16(rank)));
#elif defined(__AVX2__)
            const auto above = (__m256i)(parts[0] > rank);
            return __builtin_ctz(static_cast<unsigned>(_mm256_movemask_epi8(above))) / 2;
#elif defined(__SSE2__)
            const auto low = (__m128i)(parts[0] > rank), high = (__m128i)(parts[1] > rank);
            return __builtin_ctz(
                static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(low, high))));
#endif
        } else {
#if defined(__AVX512BW__)
            return __builtin_ctz(
                _mm512_cmpgt_epi32_mask((__m512i)parts[0], _mm512_set1_epi32(rank)));
#elif defined(__AVX2__)
            const auto low = (__m256)(parts[0] > rank), high = (__m256)(parts[1] > rank);
            return __builtin_ctz(static_cast<unsigned>(_mm256_movemask_ps(low)) |
                                 static_cast<unsigned>(_mm256_movemask_ps(high)) << 8);
#elif defined(__SSE2__)
            const auto above = [&](int i) { return (__m128i)(parts[i] > rank); };
            const __m128i low = _mm_packs_epi32(above(0), above(1));
            const __m128i high = _mm_packs_epi32(above(2), above(3));
            return __builtin_ctz(
                static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(low, high))));
#endif
        }
        int count = 0;
        while (parts[count / kLanesOf][count % kLanesOf] <= rank) ++count;
        return count;
    }

  private:
    template <class Other>
    static Part PartOf(const Counts<Other>& other, int i) {
        const auto* from = reinterpret_cast<const std::uint8_t*>(&other);
        return __builtin_convertvector(
            Load<VectorOf<Other, kLanesOf>>(from + i * kLanesOf * sizeof(Other)), Part);
    }
};

template <class Column, class Sum>
class ColumnMedian {
  public:
    explicit ColumnMedian(const Call& call)
        : call_(call),
          columns_(std::int64_t{call.size.width < kStrip ? call.size.width : kStrip} +
                   call.mask.width - 1),
          memory_(17 * columns_ * std::int64_t{sizeof(ColumnCounts)}),
          coarse_(static_cast<ColumnCounts*>(memory_.data())),
          fine_(coarse_ + (coarse_ ? columns_ : 0)) {
        for (int v = 0; v < 16; ++v)
            for (int k = 0; k < 16; ++k)
                upTo_[v].parts[k / ColumnCounts::kLanesOf][k % ColumnCounts::kLanesOf] =
                    k >= v ? 1 : 0;
    }
    explicit operator bool() const { return coarse_ != nullptr; }

    /// Result columns that are taken at once; with them the columns' counts stay in the second
    /// cache.
    static constexpr int kStrip = 2048;

    /// One channel of the columns from x on.
    void Run(int x, int channel) {
        const int width = call_.size.width - x < kStrip ? call_.size.width - x : kStrip;
        const int columns = width + call_.mask.width - 1;
        const std::uint8_t* src = call_.src + 4 * std::ptrdiff_t{x} + channel;
        std::uint8_t* dst = call_.dst + 4 * std::ptrdiff_t{x} + channel;
        std::memset(static_cast<void*>(coarse_), 0, 17 * columns_ * sizeof(ColumnCounts));
        for (int y = 0; y < call_.mask.height; ++y) {
            const std::uint8_t* row = Row(src, call_.srcStep, y);
            for (int i = 0; i < columns; ++i) Add(i, row[4 * std::ptrdiff_t{i}]);
        }
        for (int y = 0; y < call_.size.height; ++y) {
            if (y > 0) {
                const std::uint8_t* out = Row(src, call_.srcStep, y - 1);
                const std::uint8_t* in = Row(out, call_.srcStep, call_.mask.height);
                for (std::ptrdiff_t i = 0; i < columns; ++i)
                    if (in[4 * i] != out[4 * i]) {
                        Remove(i, out[4 * i]);
                        Add(i, in[4 * i]);
                    }
            }
            FilterRow(Row(dst, call_.dstStep, y), width);
        }
    }

  private:
    using ColumnCounts = Counts<Column>;
    using SumCounts = Counts<Sum>;

    ColumnCounts* Fine(int high) const { return fine_ + high * columns_; }
    void Add(std::ptrdiff_t column, int value) {
        coarse_[column] += upTo_[value >> 4];
        Fine(value >> 4)[column] += upTo_[value & 15];
    }
    void Remove(std::ptrdiff_t column, int value) {
        coarse_[column] -= upTo_[value >> 4];
        Fine(value >> 4)[column] -= upTo_[value & 15];
    }

    /// The sum of the columns under the mask at x.
    void Total(SumCounts& sum, const ColumnCounts* columns, int x) const {
        SumCounts total{};
        for (int i = 0; i < call_.mask.width; ++i) total += columns[x + i];
        sum = total;
    }
    /// Moves such a sum one pixel to the right, to x.
    void Step(SumCounts& sum, const ColumnCounts* columns, int x) const {
        sum += columns[x + call_.mask.width - 1];
        sum -= columns[x - 1];
    }

    void FilterRow(std::uint8_t* dst, int width) const {
        const auto middle = static_cast<Sum>(call_.area() / 2);
        SumCounts fine[16];
        int at[16];  // the pixels that the fine sums stand at; far left is out of reach
        for (int& x : at) x = -call_.mask.width;
        SumCounts coarse;
        Total(coarse, coarse_, 0);
        for (int x = 0;;) {
            const int high = coarse.NotAbove(middle);
            Sum below[17];
            below[0] = 0;
            std::memcpy(below + 1, &coarse, sizeof coarse);
            CatchUp(fine[high], Fine(high), at[high], x);
            const int low = fine[high].NotAbove(static_cast<Sum>(middle - below[high]));
            dst[4 * std::ptrdiff_t{x}] = static_cast<std::uint8_t>(high << 4 | low);
            if (++x == width) return;
            Step(coarse, coarse_, x);
        }
    }
    /// Brings a sum that stands at pixel `at` to x by the shorter way.
    void CatchUp(SumCounts& sum, const ColumnCounts* columns, int& at, int x) const {
        if (x - at < call_.mask.width / 2) {
            while (at < x) Step(sum, columns, ++at);
        } else {
            Total(sum, columns, x);
            at = x;
        }
    }

    const Call call_;
    const std::int64_t columns_;
    const Scratch memory_;
    ColumnCounts* const coarse_;
    ColumnCounts* const fine_;
    ColumnCounts upTo_[16];  ///< what a sample adds, by the half that counts
};

template <class Column, class Sum>
[[gnu::noinline]] int LargeMedian(const Call& call, int medians) {
    ColumnMedian<Column, Sum> filter(call);
    if (!filter) return kStatusNoMemory;
    for (std::int64_t x = 0; x < call.size.width; x += filter.kStrip)
        for (int c = 0; c < medians; ++c) filter.Run(static_cast<int>(x), c);
    return kStatusOk;
}

template <int Medians>
int FilterMedian(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                 IppiSize size, IppiSize mask, IppiPoint anchor) {
    if (const int status = CheckImages({Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep)}, size))
        return status;
    if (mask.width < 1 || mask.height < 1) return kStatusSizeError;
    if (mask.width % 2 == 0 || mask.height % 2 == 0 || anchor.x < 0 || anchor.y < 0 ||
        anchor.x >= mask.width || anchor.y >= mask.height)
        return kStatusBadArgument;
    const std::int64_t area = std::int64_t{mask.width} * mask.height;
    if (area > INT32_MAX) return kStatusBadArgument;

    const Call call{Row(src, srcStep, -anchor.y) - 4 * std::ptrdiff_t{anchor.x},
                    srcStep,
                    dst,
                    dstStep,
                    size,
                    mask};
    if (mask.width == 3 && mask.height == 3) return SmallMedian<Medians>(call, ByExtremes<3>{});
    if (mask.width == 5 && mask.height == 5) return SmallMedian<Medians>(call, ByExtremes<5>{});
    if (area <= kSmallArea) return SmallMedian<Medians>(call, ByBits{mask});
    if (area <= INT16_MAX && mask.height <= UINT8_MAX)
        return LargeMedian<std::uint8_t, std::int16_t>(call, Medians);
    return mask.height <= UINT16_MAX ? LargeMedian<std::uint16_t, std::int32_t>(call, Medians)
                                     : LargeMedian<std::int32_t, std::int32_t>(call, Medians);
}

}  // namespace

int ippiFilterMedian_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size, IppiSize maskSize, IppiPoint anchor) {
    return FilterMedian<4>(src, srcStep, dst, dstStep, size, maskSize, anchor);
}

int ippiFilterMedian_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                             IppiSize size, IppiSize maskSize, IppiPoint anchor) {
    return FilterMedian<3>(src, srcStep, dst, dstStep, size, maskSize, anchor);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
