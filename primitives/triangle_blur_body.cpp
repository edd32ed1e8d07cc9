// Bodies of the triangle blur; built once for each variant.
//
// From one place to the next a triangle's sum grows by a slope: the sum of the samples under its
// right side less that under its left side. The slope changes by four samples a place. Both are
// whole numbers below 2^26, so running sums are exact.
#include "primitives/triangle_blur.h"

#include "primitives/pixel_loops.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr int kSlack = 64;
static_assert(kSlack >= kVectorBytes);

inline int Least(int a, int b) {
    return a < b ? a : b;
}

/// A triangle along an axis of the image.
struct Axis {
    int taps, half, before;  // `before` taps lie to the left of the output's place
    int first, last;         // the places that are not repeats
    float inverse;           // 1 / (sum of weights)

    Axis(int length, int n, int inset) : taps(n), half((n + 1) / 2), before((n - 1) / 2) {
        first = Least(inset, (length - 1) / 2);
        last = length - 1 - first;
        inverse = 1.0f / static_cast<float>(half * (n % 2 ? half : half + 1));
    }
    int Inner(int place) const { return place < first ? first : Least(place, last); }
    int Weight(int tap) const { return tap < taps ? Least(tap + 1, taps - tap) : 0; }
    /// How a tap, one behind the last among them, enters the slope.
    int Trend(int tap) const { return (tap > taps - half ? 1 : 0) - (tap < half ? 1 : 0); }
};

/// Sums to bytes. `sums` can be read to the end of a vector loop.
template <bool kKeepsFourth>
void Emit(const std::int32_t* sums, std::ptrdiff_t count, float inverse, std::uint8_t* to) {
    const auto block = [inverse](const std::int32_t* s) {
        const auto lanes = [&](int i) { return R8(ToFloat(Load<I32>(s + i * kLanes)) * inverse); };
        return NarrowToBytes(lanes(0), lanes(1), lanes(2), lanes(3));
    };
    std::ptrdiff_t i = 0;
    for (; i + kVectorBytes <= count; i += kVectorBytes) {
        U8 bytes = block(sums + i);
        if constexpr (kKeepsFourth) bytes = KeepFourth(bytes, Load<U8>(to + i));
        Store(to + i, bytes);
    }
    if (i == count) return;
    U8 bytes = block(sums + i);
    if constexpr (kKeepsFourth) {
        U8 old{};
        std::memcpy(&old, to + i, static_cast<std::size_t>(count - i));
        bytes = KeepFourth(bytes, old);
    }
    std::memcpy(to + i, &bytes, static_cast<std::size_t>(count - i));
}

/// The columns' sums, one row of the image after the other.
class Columns {
  public:
    Columns(const std::uint8_t* src, int step, std::ptrdiff_t samples, const Axis& axis,
            std::int32_t* sums, std::int32_t* slopes)
        : src_(src), step_(step), samples_(samples), axis_(axis), sums_(sums), slopes_(slopes) {
        std::memset(sums, 0, static_cast<std::size_t>(samples) * sizeof *sums);
        std::memset(slopes, 0, static_cast<std::size_t>(samples) * sizeof *slopes);
        // Taps on one row, as all those above the image are, enter together.
        int weight = 0, trend = 0;
        for (int tap = 0; tap <= axis.taps; ++tap) {
            weight += axis.Weight(tap);
            trend += axis.Trend(tap);
            const int row = At(tap);
            if (tap < axis.taps && At(tap + 1) == row) continue;
            Add(Row(src, step, row), weight, trend);
            weight = trend = 0;
        }
    }

    void Advance() {
        const std::uint8_t* enters = Row(src_, step_, At(axis_.taps + 1));
        const std::uint8_t* leaves = Row(src_, step_, At(0));
        const std::uint8_t* passesRight = Row(src_, step_, At(axis_.taps - axis_.half + 1));
        const std::uint8_t* passesLeft = Row(src_, step_, At(axis_.half));
        std::int32_t* __restrict sums = sums_;
        std::int32_t* __restrict slopes = slopes_;
        for (std::ptrdiff_t i = 0; i < samples_; ++i) {
            sums[i] += slopes[i];
            slopes[i] += (enters[i] + leaves[i]) - (passesRight[i] + passesLeft[i]);
        }
        ++place_;
    }

  private:
    /// The row of a tap of the current place.
    int At(int tap) const { return axis_.Inner(axis_.first + place_ - axis_.before + tap); }
    void Add(const std::uint8_t* row, int weight, int trend) {
        std::int32_t* __restrict sums = sums_;
        std::int32_t* __restrict slopes = slopes_;
        for (std::ptrdiff_t i = 0; i < samples_; ++i) {
            sums[i] += weight * row[i];
            slopes[i] += trend * row[i];
        }
    }

    const std::uint8_t* src_;
    int step_;
    std::ptrdiff_t samples_;
    const Axis& axis_;
    std::int32_t* sums_;
    std::int32_t* slopes_;
    int place_ = 0;
};

/// The samples of one pixel as integers.
template <int Channels>
inline VectorOf<std::int32_t, Channels> PixelAt(const std::uint8_t* line, std::ptrdiff_t x) {
    return __builtin_convertvector((Load<VectorOf<std::uint8_t, Channels>>(line + Channels * x)),
                                   VectorOf<std::int32_t, Channels>);
}

/// The sums along a row; `line` starts at the first tap of the first place.
template <int Channels>
void SumAlong(const std::uint8_t* line, int width, const Axis& axis, std::int32_t* sums) {
    VectorOf<std::int32_t, Channels> sum{}, slope{};
    for (int tap = 0; tap <= axis.taps; ++tap) {
        const auto pixel = PixelAt<Channels>(line, tap);
        sum += axis.Weight(tap) * pixel;
        slope += axis.Trend(tap) * pixel;
    }
    const std::ptrdiff_t enters = axis.taps + 1, passesRight = axis.taps - axis.half + 1;
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        Store(sums + Channels * x, sum);
        sum += slope;
        slope += PixelAt<Channels>(line, x + enters) + PixelAt<Channels>(line, x) -
                 PixelAt<Channels>(line, x + passesRight) - PixelAt<Channels>(line, x + axis.half);
    }
}

/// Repeats the pixels at `first` and `last` over all before and behind them.
template <int Channels>
void RepeatEnds(std::uint8_t* line, std::ptrdiff_t first, std::ptrdiff_t last, std::ptrdiff_t end) {
    for (std::ptrdiff_t x = 0; x < first; ++x)
        std::memcpy(line + Channels * x, line + Channels * first, Channels);
    for (std::ptrdiff_t x = last + 1; x < end; ++x)
        std::memcpy(line + Channels * x, line + Channels * last, Channels);
}

template <int Channels, bool kKeepsFourth = false>
int TriangleBlur(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                 IppiSize size, IppiSize triangle, int inset, std::int32_t* work) {
    if (!work) return kStatusNullPointer;
    if (const int status =
            CheckImages({Pixels<Channels>(src, srcStep), Pixels<Channels>(dst, dstStep)}, size))
        return status;
    if (triangle.width < 1 || triangle.width > kLargestTriangle || triangle.height < 1 ||
        triangle.height > kLargestTriangle || inset < 0)
        return kStatusBadArgument;

    const Axis across(size.width, triangle.width, inset), down(size.height, triangle.height, inset);
    const std::ptrdiff_t samples = static_cast<std::ptrdiff_t>(size.width) * Channels;
    std::int32_t* columnSums = work;
    std::int32_t* slopes = columnSums + samples + kSlack;
    std::int32_t* sums = slopes + samples + kSlack;
    auto* line = reinterpret_cast<std::uint8_t*>(sums + samples + kSlack);

    Columns columns(src, srcStep, samples, down, columnSums, slopes);
    for (int y = 0; y < size.height; ++y) {
        if (y > down.first && y <= down.last) columns.Advance();
        if (y == 0 || (y > down.first && y <= down.last)) {
            Emit<false>(columnSums, samples, down.inverse, line + Channels * across.before);
            RepeatEnds<Channels>(line, across.before + across.first, across.before + across.last,
                                 static_cast<std::ptrdiff_t>(size.width) + triangle.width + 2);
            SumAlong<Channels>(line, size.width, across, sums);
        }
        Emit<kKeepsFourth>(sums, samples, across.inverse, Row(dst, dstStep, y));
    }
    return kStatusOk;
}

}  // namespace

int TriangleBlur_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                        IppiSize size, IppiSize triangle, int inset, std::int32_t* work) {
    return TriangleBlur<1>(src, srcStep, dst, dstStep, size, triangle, inset, work);
}
int TriangleBlur_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                        IppiSize size, IppiSize triangle, int inset, std::int32_t* work) {
    return TriangleBlur<4>(src, srcStep, dst, dstStep, size, triangle, inset, work);
}
int TriangleBlur_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, IppiSize triangle, int inset, std::int32_t* work) {
    return TriangleBlur<4, true>(src, srcStep, dst, dstStep, size, triangle, inset, work);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
