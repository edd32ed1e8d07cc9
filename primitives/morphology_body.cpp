// Bodies of the dilations; built once for each variant.
//
// The picture is taken in strips of columns. For each source row the largest samples of 1, 2, 4, 8,
// ... neighbours are made; those of any run of the mask are the larger ones of two of these that
// overlap. They go to all result rows that see the source row through that run, which wait in a
// ring until their last source row has come. So a mask costs its runs, not its area. Small masks
// are looked at position by position.
#include <cstdlib>

#include "primitives/morphology_state.h"
#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

template <class Sample>
struct Lanes;
template <>
struct Lanes<std::uint8_t> {
    using Vector = U8;
    static constexpr std::uint8_t kLowest = 0;
    static U8 Counted(U8 v) { return v; }
};
template <>
struct Lanes<float> {
    using Vector = F32;
    static constexpr float kLowest = -__builtin_inff();
    /// What is no number counts as minus infinity, and minus zero as zero, so that the order in
    /// which samples are compared does not show.
    static F32 Counted(F32 v) {
        const I32 isNumber = v == v;  // NOLINT(misc-redundant-expression): false for NaN alone
        return isNumber ? v + 0.0f : F32{} + kLowest;
    }
};

/// Bytes of a strip of results: few, so that the ring of a tall mask stays in the nearest cache.
constexpr int kStripBytes = 512;
constexpr int kStripVectors = kStripBytes / kVectorBytes;

inline int Log2(int v) {
    return 31 - __builtin_clz(static_cast<unsigned>(v));
}

inline std::int64_t Between(std::int64_t v, std::int64_t end) {
    return v < 0 ? 0 : v > end ? end : v;
}
template <int Channels, class Sample>
Sample* Repeat(Sample* to, const Sample* pixel, std::int64_t count) {
    for (; count > 0; --count, to += Channels) std::memcpy(to, pixel, Channels * sizeof(Sample));
    return to;
}

/// The samples of a row as they are compared: `pixels` of them from column `start` on, the row
/// being widened by its first and last pixel. A vector of the lowest sample follows.
template <int Channels, class Sample>
void WidenRow(const Sample* row, int width, std::int64_t start, std::int64_t pixels, Sample* to) {
    using Vector = typename Lanes<Sample>::Vector;
    constexpr int kLanesOf = sizeof(Vector) / sizeof(Sample);
    const std::int64_t before = Between(-start, pixels);
    const std::int64_t inside = Between(width - start, pixels) - before;
    Sample* at = Repeat<Channels>(to, row, before);
    if (inside > 0)
        std::memcpy(at, row + Channels * (start + before),
                    static_cast<std::size_t>(Channels * inside) * sizeof(Sample));
    at = Repeat<Channels>(at + Channels * inside, row + std::ptrdiff_t{Channels} * (width - 1),
                          pixels - before - inside);
    for (int i = 0; i < kLanesOf; ++i) at[i] = Lanes<Sample>::kLowest;
    if constexpr (sizeof(Sample) > 1)
        for (std::int64_t i = 0; i < Channels * pixels; i += kLanesOf)
            Store(to + i, Lanes<Sample>::Counted(Load<Vector>(to + i)));
}

template <class Sample, int Channels>
class Dilation {
  public:
    Dilation(const IppiMorphologyState& mask, IppiSize size)
        : mask_(mask),
          size_(size),
          levels_(Log2(mask.longest) + 1),
          levelSamples_(kStrip + Channels * (std::int64_t{mask.right} - mask.left) + kLanesOf) {
        const std::int64_t rows = std::int64_t{mask.bottom} - mask.top + 1;
        while (ringRows_ < rows && ringRows_ < size.height) ringRows_ *= 2;
        const std::int64_t bytes =
            (levels_ * levelSamples_ + ringRows_ * kStrip) * int{sizeof(Sample)};
        constexpr std::int64_t kAddressable = PTRDIFF_MAX - kVectorBytes;
        // Aligned, so that no vector of the ring lies across two cache lines.
        if (bytes <= kAddressable)
            ring_ = static_cast<Sample*>(
                std::aligned_alloc(64, (static_cast<std::size_t>(bytes) + 63) / 64 * 64));
        if (ring_) level_ = ring_ + ringRows_ * kStrip;
    }
    ~Dilation() { std::free(ring_); }
    Dilation(const Dilation&) = delete;
    Dilation& operator=(const Dilation&) = delete;
    explicit operator bool() const { return ring_ != nullptr; }

    static constexpr int kStrip = kStripBytes / int{sizeof(Sample)};  ///< samples
    static constexpr int kStripPixels = kStrip / Channels;

    /// The results of kStripPixels columns from x on, or of as many as there are.
    void Run(const Sample* src, int srcStep, Sample* dst, int dstStep, int x) {
        const int pixels = size_.width - x < kStripPixels ? size_.width - x : kStripPixels;
        const auto bytes = static_cast<std::size_t>(pixels) * Channels * sizeof(Sample);
        for (std::int64_t y = 0; y < ringRows_; ++y) Clear(RingRow(y));
        int made = -1;
        for (std::int64_t y = mask_.top; y < std::int64_t{size_.height} + mask_.bottom; ++y) {
            const int from = y < 0 ? 0 : y >= size_.height ? size_.height - 1 : static_cast<int>(y);
            if (from != made) MakeLevels(Row(src, srcStep, from), x);
            made = from;
            Spread(y);
            const std::int64_t done = y - mask_.bottom;
            if (done < 0) continue;
            Sample* result = RingRow(done);
            std::memcpy(Row(dst, dstStep, static_cast<int>(done)) + std::ptrdiff_t{Channels} * x,
                        result, bytes);
            Clear(result);
        }
    }

  private:
    using Vector = typename Lanes<Sample>::Vector;
    static constexpr int kLanesOf = sizeof(Vector) / sizeof(Sample);

    Sample* RingRow(std::int64_t y) const { return ring_ + (y & (ringRows_ - 1)) * kStrip; }
    static void Clear(Sample* row) {
        for (int i = 0; i < kStrip; ++i) row[i] = Lanes<Sample>::kLowest;
    }

    /// Level k holds the largest of 2^k neighbours from each on; level 0 is the row itself from
    /// column x + mask_.left on.
    void MakeLevels(const Sample* row, int x) {
        const std::int64_t pixels = kStripPixels + std::int64_t{mask_.right} - mask_.left;
        WidenRow<Channels>(row, size_.width, std::int64_t{x} + mask_.left, pixels, level_);
        std::int64_t samples = Channels * pixels;
        for (int k = 1; k < levels_; ++k) {
            const Sample* half = level_ + (k - 1) * levelSamples_;
            Sample* whole = level_ + k * levelSamples_;
            const std::int64_t reach = std::int64_t{Channels} << (k - 1);
            samples -= reach;
            for (std::int64_t i = 0; i < samples; i += kLanesOf)
                Store(whole + i, Max(Load<Vector>(half + i), Load<Vector>(half + i + reach)));
        }
    }

    /// Takes source row y, which lies above or below the picture where a mask reaches beyond it, to
    /// the result rows that see it.
    void Spread(std::int64_t y) {
        const MorphologyRun* const end = mask_.runs + mask_.count;
        for (const MorphologyRun* run = mask_.runs; run != end;) {
            const MorphologyRun& span = *run;
            const int k = Log2(span.right - span.left + 1);
            const Sample* left =
                level_ + k * levelSamples_ + std::int64_t{Channels} * (span.left - mask_.left);
            const Sample* right = left + Channels * (std::int64_t{span.right} - span.left + 1 -
                                                     (std::int64_t{1} << k));
            Vector largest[kStripVectors];
            for (int i = 0; i < kStripVectors; ++i)
                largest[i] =
                    Max(Load<Vector>(left + i * kLanesOf), Load<Vector>(right + i * kLanesOf));
            for (; run != end && run->left == span.left && run->right == span.right; ++run) {
                const std::int64_t seenBy = y - run->row;
                if (seenBy < 0 || seenBy >= size_.height) continue;
                Sample* result = RingRow(seenBy);
                for (int i = 0; i < kStripVectors; ++i)
                    Store(result + i * kLanesOf,
                          Max(Load<Vector>(result + i * kLanesOf), largest[i]));
            }
        }
    }

    const IppiMorphologyState& mask_;
    const IppiSize size_;
    const int levels_;
    const std::int64_t levelSamples_;
    std::int64_t ringRows_ = 1;  ///< a power of two
    Sample* ring_ = nullptr;
    Sample* level_ = nullptr;
};

/// A small mask, of which every position is looked at for every result: that is fewer steps than
/// the runs take. The source rows under the mask wait in a ring.
template <class Sample, int Channels>
class SmallDilation {
  public:
    static bool Suits(const IppiMorphologyState& mask) {
        std::int64_t positions = 0;
        for (std::size_t i = 0; i < mask.count && positions <= kMostPositions; ++i)
            positions += std::int64_t{mask.runs[i].right} - mask.runs[i].left + 1;
        return positions <= kMostPositions && std::int64_t{mask.right} - mask.left < kMostSide &&
               std::int64_t{mask.bottom} - mask.top < kMostSide;
    }

    SmallDilation(const IppiMorphologyState& mask, IppiSize size) : mask_(mask), size_(size) {
        for (std::size_t i = 0; i < mask.count; ++i)
            for (int x = mask.runs[i].left; x <= mask.runs[i].right; ++x)
                positions_[count_++] = {mask.runs[i].row, (x - mask.left) * Channels};
    }

    static constexpr int kStripPixels = 2048 / int{sizeof(Sample)} / Channels;

    /// The results of kStripPixels columns from x on, or of as many as there are.
    void Run(const Sample* src, int srcStep, Sample* dst, int dstStep, int x) {
        const int pixels = size_.width - x < kStripPixels ? size_.width - x : kStripPixels;
        const std::int64_t reach = std::int64_t{mask_.right} - mask_.left;
        std::int64_t made = mask_.top;
        for (int y = 0; y < size_.height; ++y) {
            for (; made <= std::int64_t{y} + mask_.bottom; ++made) {
                const auto from = static_cast<int>(Between(made, size_.height - 1));
                WidenRow<Channels>(Row(src, srcStep, from), size_.width,
                                   std::int64_t{x} + mask_.left, pixels + reach, RingRow(made));
            }
            const Sample* seen[kMostPositions];
            int k = 0;  // no mask is without a position
            do seen[k] = RingRow(std::int64_t{y} + positions_[k].row) + positions_[k].offset;
            while (++k < count_);
            StoreLargest(seen, std::ptrdiff_t{pixels} * Channels,
                         Row(dst, dstStep, y) + std::ptrdiff_t{Channels} * x);
        }
    }

  private:
    using Vector = typename Lanes<Sample>::Vector;
    static constexpr int kLanesOf = sizeof(Vector) / sizeof(Sample);
    static constexpr int kBlock = 4 * kLanesOf;
    static constexpr int kMostPositions = 32;
    static constexpr int kMostSide = 8;

    Sample* RingRow(std::int64_t y) { return ring_[y & (kMostSide - 1)]; }

    void StoreLargest(const Sample* const* seen, std::ptrdiff_t samples, Sample* to) const {
        for (std::ptrdiff_t i = 0; i < samples; i += kBlock) {
            Vector largest[4];
            for (int v = 0; v < 4; ++v) largest[v] = Load<Vector>(seen[0] + i + v * kLanesOf);
            for (int k = 1; k < count_; ++k)
                for (int v = 0; v < 4; ++v)
                    largest[v] = Max(largest[v], Load<Vector>(seen[k] + i + v * kLanesOf));
            if (i + kBlock <= samples)
                for (int v = 0; v < 4; ++v) Store(to + i + v * kLanesOf, largest[v]);
            else
                std::memcpy(to + i, largest,
                            static_cast<std::size_t>(samples - i) * sizeof(Sample));
        }
    }

    struct Position {
        int row, offset;
    };

    const IppiMorphologyState& mask_;
    const IppiSize size_;
    Position positions_[kMostPositions] = {};
    int count_ = 0;
    // Blocks read behind the last sample of a row; what is there they drop.
    Sample ring_[kMostSide][(kStripPixels + kMostSide) * Channels + kBlock] = {};
};

template <int Channels, class Sample>
int Dilate(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size, int borderType,
           const IppiMorphologyState* state) {
    if (!state) return kStatusNullPointer;
    if (const int status =
            CheckImages({Pixels<Channels>(src, srcStep), Pixels<Channels>(dst, dstStep)}, size))
        return status;
    if (borderType != kBorderReplicate || state->channels != Channels ||
        state->sampleBytes != sizeof(Sample) || state->rowWidth < size.width)
        return kStatusBadArgument;
    const auto run = [&](auto& dilation) {
        for (std::int64_t x = 0; x < size.width; x += dilation.kStripPixels)
            dilation.Run(src, srcStep, dst, dstStep, static_cast<int>(x));
        return kStatusOk;
    };
    if (SmallDilation<Sample, Channels>::Suits(*state)) {
        SmallDilation<Sample, Channels> dilation(*state, size);
        return run(dilation);
    }
    Dilation<Sample, Channels> dilation(*state, size);
    return dilation ? run(dilation) : kStatusNoMemory;
}

}  // namespace

int ippiDilateBorderReplicate_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst,
                                     int dstStep, IppiSize size, int borderType,
                                     const IppiMorphologyState* state) {
    return Dilate<1>(src, srcStep, dst, dstStep, size, borderType, state);
}

int ippiDilateBorderReplicate_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst,
                                     int dstStep, IppiSize size, int borderType,
                                     const IppiMorphologyState* state) {
    return Dilate<4>(src, srcStep, dst, dstStep, size, borderType, state);
}

int ippiDilateBorderReplicate_32f_C1R(const float* src, int srcStep, float* dst, int dstStep,
                                      IppiSize size, int borderType,
                                      const IppiMorphologyState* state) {
    return Dilate<1>(src, srcStep, dst, dstStep, size, borderType, state);
}

int ippiDilateBorderReplicate_32f_C4R(const float* src, int srcStep, float* dst, int dstStep,
                                      IppiSize size, int borderType,
                                      const IppiMorphologyState* state) {
    return Dilate<4>(src, srcStep, dst, dstStep, size, borderType, state);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
