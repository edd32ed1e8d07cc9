// Bodies of the reduction of levels; built once for each variant. Everything is exact in integers:
// divisions are worked by multiplication only where the comments say why no result can differ.
#include "primitives/reduce_bits.h"

#include <cstdlib>

#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

enum Dither { kNone, kFloydSteinberg, kJarvisJudiceNinke, kStucki, kOrdered };

template <class Sample>
inline constexpr int kLargest = sizeof(Sample) == 1 ? 255 : 65535;

/// The value of level k, where `top` is the number of the last level.
template <class Sample>
inline std::uint32_t LevelValue(std::uint32_t k, std::uint32_t top) {
    return (k * kLargest<Sample> + top / 2) / top;
}

/// Scratch memory of one call, freed with it.
class Scratch {
  public:
    explicit Scratch(std::size_t bytes) : data_(std::calloc(bytes, 1)) {}
    ~Scratch() { std::free(data_); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    explicit operator bool() const { return data_ != nullptr; }
    /// The next `count` elements; callers ask for the widest types first, so that all are aligned.
    template <class T>
    T* Take(std::size_t count) {
        T* taken = reinterpret_cast<T*>(static_cast<char*>(data_) + used_);
        used_ += count * sizeof(T);
        return taken;
    }

  private:
    void* data_;
    std::size_t used_ = 0;
};

// --- noise
// ----------------------------------------------------------------------------------------

/// Adds noise to rows, in the order in which they are asked for.
template <class Sample>
class Noise {
  public:
    Noise(int percent, std::uint32_t top)
        : reach_(kLargest<Sample> * percent / (200 * static_cast<std::int64_t>(top))) {}

    void AddTo(const Sample* src, Sample* noisy, int width) {
        for (int x = 0; x < width; ++x)
            for (int c = 0; c < 3; ++c) {
                std::int64_t v = src[4 * x + c] + Next();
                v = v < 0 ? 0 : v > kLargest<Sample> ? kLargest<Sample> : v;
                noisy[4 * x + c] = static_cast<Sample>(v);
            }
    }

  private:
    /// A whole number from -reach_ to reach_, from the high bits of a linear congruential
    /// generator.
    std::int64_t Next() {
        state_ = state_ * 1664525u + 1013904223u;
        return static_cast<std::int64_t>(std::uint64_t{state_} * (2 * reach_ + 1) >> 32) - reach_;
    }

    std::uint32_t state_ = 1;
    std::int64_t reach_;
};

// --- none and ordered
// -----------------------------------------------------------------------------

/// The Bayer matrix, grown by the usual rule: the quadrants of each larger matrix hold 4 times the
/// smaller one plus 0, 2, 3, 1.
struct BayerMatrix {
    int at[8][8] = {{0, 2}, {3, 1}};
    constexpr BayerMatrix() {
        for (int half = 2; half < 8; half *= 2)
            for (int y = 0; y < half; ++y)
                for (int x = 0; x < half; ++x) {
                    const int smaller = 4 * at[y][x];
                    at[y][x] = smaller;
                    at[y][x + half] = smaller + 2;
                    at[y + half][x] = smaller + 3;
                    at[y + half][x + half] = smaller + 1;
                }
    }
};
inline constexpr BayerMatrix kBayer;

/// Maps a sample v to its level k = floor((v top + offset) / M) and that to its value. The offset
/// is M / 2 for no dither; for the ordered one, k = floor((v top 128 + M T) / (128 M)) is the same
/// as an offset of floor(M T / 128), which stays below M, so that k never passes `top`.
template <class Sample>
class LevelMap;

/// In floats: adding a half to a numerator keeps the quotient at least 1/510 away from the next
/// whole number, and the error of multiplying by a rounded reciprocal stays below 256 * 2^-23.
template <>
class LevelMap<std::uint8_t> {
  public:
    using Offset = float;
    explicit LevelMap(std::uint32_t top)
        : top_(static_cast<float>(top)),
          half_(static_cast<float>(top / 2) + 0.5f),
          reciprocal_(1.0f / static_cast<float>(top)) {}
    static Offset ToOffset(int offset) { return static_cast<float>(offset) + 0.5f; }
    I32 operator()(I32 v, const Offset* offsets) const {
        const I32 k = ToInt((ToFloat(v) * top_ + Load<F32>(offsets)) * (1.0f / 255.0f));
        return ToInt((ToFloat(k) * 255.0f + half_) * reciprocal_);
    }

  private:
    float top_, half_, reciprocal_;
};

/// In 32-bit integers: x / 65535 is (x + 1 + (x >> 16)) >> 16 for all x up to 65535 * 65536, and
/// no numerator here passes 65535 * 65535 + 65023. The value of the level starts from a float
/// quotient whose error is below 65536 * 2^-22; lowered by 1/32 it is right or 1 too small.
template <>
class LevelMap<std::uint16_t> {
  public:
    using Offset = std::uint32_t;
    explicit LevelMap(std::uint32_t top)
        : top_(top),
          half_(static_cast<float>(top / 2)),
          reciprocal_(1.0f / static_cast<float>(top)) {}
    static Offset ToOffset(int offset) { return static_cast<std::uint32_t>(offset); }
    I32 operator()(I32 v, const Offset* offsets) const {
        const U32 x = (U32)v * top_ + Load<U32>(offsets);
        const U32 k = (x + 1 + (x >> 16)) >> 16;
        const U32 numerator = (k << 16) - k + top_ / 2;
        const F32 quotient = (ToFloat((I32)k) * 65535.0f + half_) * reciprocal_;
        const I32 value = ToInt(quotient - 1.0f / 32);
        const I32 rest = (I32)(numerator - (U32)value * top_);
        return value - (rest >= (I32)(U32{} + top_));
    }

  private:
    std::uint32_t top_;
    float half_, reciprocal_;
};

template <class Sample>
void MapRows(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size, bool ordered,
             std::uint32_t top, Noise<Sample>* noise, Sample* noisy) {
    const LevelMap<Sample> map(top);
    typename LevelMap<Sample>::Offset offsets[8][16];
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 16; ++x) {
            const int threshold = ordered ? 2 * kBayer.at[y][x & 7] + 1 : 64;
            offsets[y][x] = map.ToOffset(kLargest<Sample> * threshold / 128);
        }
    for (int y = 0; y < size.height; ++y) {
        const Sample* from = Row(src, srcStep, y);
        if (noise) {
            noise->AddTo(from, noisy, size.width);
            from = noisy;
        }
        ForBlocksAC4<kLanes>(from, Row(dst, dstStep, y), size.width,
                             [&](const Sample* in, Sample* out, int x) {
                                 const auto* row = offsets[y & 7] + (x & 7);
                                 const Planes p = Split(in);
                                 Join(out, {map(p.s0, row), map(p.s1, row), map(p.s2, row)});
                             });
    }
}

// --- error diffusion
// ------------------------------------------------------------------------------

/// Where the error of a pixel goes: to the pixels at its right, and below it from x - 2 to x + 2.
struct Kernel {
    int denominator;
    int ahead[2];
    int next[5];
    int after[5];
};
inline constexpr Kernel kKernels[] = {
    {16, {7, 0}, {0, 3, 5, 1, 0}, {0, 0, 0, 0, 0}},
    {48, {7, 5}, {3, 5, 7, 5, 3}, {1, 3, 5, 3, 1}},
    {42, {8, 4}, {2, 4, 8, 4, 2}, {1, 2, 4, 2, 1}},
};

/// What a sample becomes together with the error that it leaves behind. An error is at most half a
/// step, so v plus the divided errors stays within kMargin of the samples' range.
template <class Sample>
class Quantizer;

/// By tables, one entry for each sum of a sample and an error, cut to 0..255 in the making.
template <>
class Quantizer<std::uint8_t> {
  public:
    using Error = std::int16_t;
    using Errors = I16;
    static constexpr int kMargin = 128;
    static constexpr std::size_t ScratchBytes(std::uint32_t) { return 0; }
    Quantizer(std::uint32_t top, Scratch&) {
        for (int i = 0; i < 256 + 2 * kMargin; ++i) {
            const int v = i < kMargin ? 0 : i > 255 + kMargin ? 255 : i - kMargin;
            const std::uint32_t k = (static_cast<std::uint32_t>(v) * top + 127) / 255;
            values_[i] = static_cast<std::uint8_t>(LevelValue<std::uint8_t>(k, top));
            errors_[i] = static_cast<Error>(v - values_[i]);
        }
    }
    /// `shifted` is the sum plus kMargin.
    int operator()(std::uint32_t shifted, std::uint8_t& value) const {
        value = values_[shifted];
        return errors_[shifted];
    }

  private:
    std::uint8_t values_[256 + 2 * kMargin];
    Error errors_[256 + 2 * kMargin];
};

/// By a table of the levels' values. Level k is floor(v top / 65535 + 1/2); a quotient in fixed
/// point with kPoint bits errs by less than 2^-24, and no fraction comes that near to the next
/// whole number. The table goes on at both ends, so that it is looked up while v is still being
/// cut.
template <>
class Quantizer<std::uint16_t> {
  public:
    using Error = std::int32_t;
    using Errors = I32;
    static constexpr int kMargin = 32768;
    static constexpr std::size_t ScratchBytes(std::uint32_t top) {
        return EntryCount(top) * sizeof(std::uint16_t);
    }
    Quantizer(std::uint32_t top, Scratch& scratch)
        : scale_(((std::uint64_t{top} << kPoint) + 32767) / 65535),
          offset_((std::uint64_t{Before(top)} << kPoint) + (std::uint64_t{1} << (kPoint - 1)) -
                  kMargin * scale_),
          values_(scratch.Take<std::uint16_t>(EntryCount(top))) {
        const std::uint32_t before = Before(top);
        for (std::uint32_t i = 0; i < EntryCount(top); ++i) {
            const std::uint32_t k = i < before ? 0 : i - before > top ? top : i - before;
            values_[i] = static_cast<std::uint16_t>(LevelValue<std::uint16_t>(k, top));
        }
    }
    int operator()(std::uint32_t shifted, std::uint16_t& value) const {
        value = values_[(shifted * scale_ + offset_) >> kPoint];
        const int v = static_cast<int>(shifted) - kMargin;
        return (v < 0 ? 0 : v > 65535 ? 65535 : v) - value;
    }

  private:
    static constexpr int kPoint = 40;
    /// Entries before level 0, and in all: kMargin is a little more than half of the range.
    static constexpr std::uint32_t Before(std::uint32_t top) { return top / 2 + 2; }
    static constexpr std::size_t EntryCount(std::uint32_t top) { return 2 * std::size_t{top} + 6; }

    std::uint64_t scale_, offset_;
    std::uint16_t* values_;
};

/// weight * v for the few small weights, by shifts: the least instruction sets lack the product.
template <int kWeight, class Vector>
inline Vector Times(Vector v) {
    static_assert(kWeight >= 0 && kWeight < 16);
    Vector sum = {};
    if constexpr (kWeight & 1) sum += v;
    if constexpr (kWeight & 2) sum += v << 1;
    if constexpr (kWeight & 4) sum += v << 2;
    if constexpr (kWeight & 8) sum += v << 3;
    return sum;
}

inline constexpr int kColours = 3;
inline constexpr int kPad = 2 * kColours;  // errors of 0 at either side of a row

/// What the errors of the rows above bring to each sample of a row. Works in whole vectors; the
/// rows of errors and of sums are long enough for it.
template <class Errors, int kRow, Kernel kKernel, class Error>
inline Errors FromAbove(const Error* errors) {
    constexpr auto& weight = kRow == 0 ? kKernel.next : kKernel.after;
    return Times<weight[0]>(Load<Errors>(errors + 2 * kColours)) +
           Times<weight[1]>(Load<Errors>(errors + kColours)) +
           Times<weight[2]>(Load<Errors>(errors)) +
           Times<weight[3]>(Load<Errors>(errors - kColours)) +
           Times<weight[4]>(Load<Errors>(errors - 2 * kColours));
}

/// One row from the left. `above` holds what comes from the rows above; the row's own errors go to
/// `errors`. acc / d, rounded with ties away from zero, is floor((acc + d / 2 - (acc < 0)) / d);
/// the margin makes the dividend positive, so that it is an unsigned division by a constant.
template <Kernel kKernel, class Sample, class Error>
inline void DiffuseRow(const Sample* src, Sample* dst, int width, const Quantizer<Sample>& quantize,
                       const Error* above, Error* errors) {
    constexpr int kD = kKernel.denominator;
    int last[kColours] = {}, lastButOne[kColours] = {};
    for (int x = 0; x < width; ++x, src += 4, dst += 4, above += kColours, errors += kColours)
        for (int c = 0; c < kColours; ++c) {
            const int acc =
                above[c] + kKernel.ahead[0] * last[c] + kKernel.ahead[1] * lastButOne[c];
            const int dividend =
                kD * (src[c] + Quantizer<Sample>::kMargin) + kD / 2 + acc + (acc >> 31);
            lastButOne[c] = last[c];
            last[c] = quantize(static_cast<std::uint32_t>(dividend) / kD, dst[c]);
            errors[c] = static_cast<Error>(last[c]);
        }
}

template <Kernel kKernel, class Sample>
int DiffuseRows(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size,
                std::uint32_t top, Noise<Sample>* noise) {
    using Error = typename Quantizer<Sample>::Error;
    using Errors = typename Quantizer<Sample>::Errors;
    constexpr int kStep = sizeof(Errors) / sizeof(Error);
    const std::size_t count = kColours * static_cast<std::size_t>(size.width);
    const std::size_t rowCount = kPad + count + kPad + kStep;
    const std::size_t noisyCount = noise ? 4 * static_cast<std::size_t>(size.width) : 0;
    Scratch scratch(4 * rowCount * sizeof(Error) + Quantizer<Sample>::ScratchBytes(top) +
                    noisyCount * sizeof(Sample));
    if (!scratch) return kStatusNoMemory;
    Error* rows[3];
    for (Error*& row : rows) row = scratch.Take<Error>(rowCount) + kPad;
    auto* above = scratch.Take<Error>(rowCount);
    const Quantizer<Sample> quantize(top, scratch);
    auto* noisy = scratch.Take<Sample>(noisyCount);
    for (int y = 0; y < size.height; ++y) {
        const Sample* from = Row(src, srcStep, y);
        if (noise) {
            noise->AddTo(from, noisy, size.width);
            from = noisy;
        }
        const Error *next = rows[(y + 2) % 3], *after = rows[(y + 1) % 3];
        for (std::size_t i = 0; i < count; i += kStep)
            Store(above + i, FromAbove<Errors, 0, kKernel>(next + i) +
                                 FromAbove<Errors, 1, kKernel>(after + i));
        DiffuseRow<kKernel>(from, Row(dst, dstStep, y), size.width, quantize, above, rows[y % 3]);
    }
    return kStatusOk;
}

template <class Sample>
int ReduceBits(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size,
               int noisePercent, int dither, int levels) {
    constexpr int kPixelBytes = 4 * sizeof(Sample);
    if (const int status =
            CheckImages({{src, srcStep, kPixelBytes}, {dst, dstStep, kPixelBytes}}, size))
        return status;
    if (levels < 2 || levels > kLargest<Sample> + 1 || dither < kNone || dither > kOrdered ||
        noisePercent < 0 || noisePercent > 100)
        return kStatusBadArgument;
    const auto top = static_cast<std::uint32_t>(levels - 1);
    Noise<Sample> generator(noisePercent, top);
    Noise<Sample>* noise = noisePercent > 0 ? &generator : nullptr;
    switch (dither) {
        case kFloydSteinberg:
            return DiffuseRows<kKernels[0]>(src, srcStep, dst, dstStep, size, top, noise);
        case kJarvisJudiceNinke:
            return DiffuseRows<kKernels[1]>(src, srcStep, dst, dstStep, size, top, noise);
        case kStucki:
            return DiffuseRows<kKernels[2]>(src, srcStep, dst, dstStep, size, top, noise);
        default:
            break;
    }
    Scratch scratch((noise ? 4 * static_cast<std::size_t>(size.width) : 1) * sizeof(Sample));
    if (!scratch) return kStatusNoMemory;
    MapRows(src, srcStep, dst, dstStep, size, dither == kOrdered, top, noise,
            scratch.Take<Sample>(0));
    return kStatusOk;
}

}  // namespace

int ippiReduceBits_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                           IppiSize size, int noise, int dither, int levels) {
    return ReduceBits(src, srcStep, dst, dstStep, size, noise, dither, levels);
}

int ippiReduceBits_16u_AC4R(const std::uint16_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                            IppiSize size, int noise, int dither, int levels) {
    return ReduceBits(src, srcStep, dst, dstStep, size, noise, dither, levels);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
