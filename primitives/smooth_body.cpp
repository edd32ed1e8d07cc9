// Bodies of the edge-preserving smoothing; built once for each variant.
//
// No table is looked up for a tap. The weight of a tap falls in steps as the distance of the
// samples grows, and all taps of a kernel together have at most 255 steps; so a weight is a count
// of the steps not yet reached, which takes a comparison each and serves a whole vector at once.
#include "primitives/smooth.h"

#include "primitives/pixel_lanes.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

using I8 [[gnu::vector_size(kVectorBytes)]] = std::int8_t;

constexpr int kLargestSum = 255;

/// The two taps at one distance from the centre, which are weighed alike.
struct TapPair {
    int distance;
    std::uint8_t least;  ///< the weight of samples as different as can be
    int firstStep, endOfSteps;
};

/// A weight has `height` more where samples are less than `limit` apart. The limit is stored less
/// 128, since the oldest instruction sets compare signed bytes only.
struct Step {
    std::int8_t limit;
    std::uint8_t height;
};

/// All that a block needs to know.
struct Plan {
    int radius;
    int pairs;
    std::uint8_t centre;  ///< weight of the centre
    TapPair pair[kLargestSmoothRadius];
    Step step[kLargestSum];
};

/// Adds the steps of one tap's weight.
void AddPair(Plan& plan, int& steps, int distance, int spatial, const int* range) {
    const auto weight = [&](int difference) { return range[difference] * spatial >> 8; };
    TapPair pair = {distance, static_cast<std::uint8_t>(weight(255)), steps, steps};
    for (int difference = 254; difference >= 0; --difference)
        if (const int height = weight(difference) - weight(difference + 1))
            plan.step[pair.endOfSteps++] = {static_cast<std::int8_t>(difference + 1 - 128),
                                            static_cast<std::uint8_t>(height)};
    if (pair.least == 0 && pair.endOfSteps == pair.firstStep) return;  // weighs nothing
    steps = pair.endOfSteps;
    plan.pair[plan.pairs++] = pair;
}

/// False where the weights leave their domain.
bool MakePlan(const SmoothWeights& weights, Plan& plan) {
    if (weights.radius < 0 || weights.radius > kLargestSmoothRadius) return false;
    int sum = 0;
    for (int i = 0; i <= weights.radius; ++i) {
        const int spatial = weights.spatial[i];
        if (spatial < 0 || spatial > 256) return false;
        if (spatial > 0) sum += (spatial - 1) * (i < weights.radius ? 2 : 1);
    }
    if (sum > kLargestSum) return false;
    for (int i = 0; i < 256; ++i)
        if (weights.range[i] < 0 || weights.range[i] > (i ? weights.range[i - 1] : 255))
            return false;

    plan.radius = weights.radius;
    plan.pairs = 0;
    plan.centre =
        static_cast<std::uint8_t>(weights.range[0] * weights.spatial[weights.radius] >> 8);
    int steps = 0;
    for (int i = 0; i < weights.radius; ++i)
        AddPair(plan, steps, weights.radius - i, weights.spatial[i], weights.range);
    return true;
}

/// |p - c| less 128.
inline I8 Apart(U8 p, U8 c) {
    return (I8)(Max(p, c) - Min(p, c) - 128);
}

/// Quotients of 16-bit lanes, rounded down. Numerators stay below 2^16 and quotients below 2^8, so
/// that the rounding of a float quotient never reaches the next whole number.
inline U16 Quotients(U16 numerators, U16 denominators) {
    const auto n = (U32)numerators, d = (U32)denominators;
    const I32 low = ToInt(ToFloat((I32)(n & 0xFFFF)) / ToFloat((I32)(d & 0xFFFF)));
    const I32 high = ToInt(ToFloat((I32)(n >> 16)) / ToFloat((I32)(d >> 16)));
    return (U16)(low | high << 16);
}

/// The weighted means at one block of samples, whose taps lie `pitch` bytes apart.
inline U8 Means(const std::uint8_t* centre, std::ptrdiff_t pitch, const Plan& plan) {
    const U8 c = Load<U8>(centre);
    U8 weights = U8{} + plan.centre;
    const WideBytes wideC = Widen(c);
    // Neither sum leaves its lane: the weights sum to 255 at most.
    U16 even = wideC.even * plan.centre, odd = wideC.odd * plan.centre;
    for (int i = 0; i < plan.pairs; ++i) {
        const TapPair& pair = plan.pair[i];
        const std::ptrdiff_t offset = pair.distance * pitch;
        const U8 p = Load<U8>(centre - offset), q = Load<U8>(centre + offset);
        const I8 pApart = Apart(p, c), qApart = Apart(q, c);
        U8 pWeight = U8{} + pair.least, qWeight = pWeight;
        for (int s = pair.firstStep; s < pair.endOfSteps; ++s) {
            const Step step = plan.step[s];
            pWeight += (U8)(pApart < step.limit) & step.height;
            qWeight += (U8)(qApart < step.limit) & step.height;
        }
        weights += pWeight + qWeight;
        const WideBytes wideP = Widen(p), wideQ = Widen(q);
        const WideBytes widePWeight = Widen(pWeight), wideQWeight = Widen(qWeight);
        even += wideP.even * widePWeight.even + wideQ.even * wideQWeight.even;
        odd += wideP.odd * widePWeight.odd + wideQ.odd * wideQWeight.odd;
    }
    const WideBytes sum = Widen(weights);
    return (U8)(Quotients(even, sum.even + 1) | Quotients(odd, sum.odd + 1) << 8);
}

/// Writes the first `count` results of a block through the tone table; a fourth sample of a pixel
/// is left alone.
template <int Channels>
inline void Put(std::uint8_t* to, U8 means, int count, const std::uint8_t* tone) {
    std::uint8_t bytes[kVectorBytes];
    Store(bytes, means);
    if constexpr (Channels == 1) {
        for (int i = 0; i < count; ++i) to[i] = tone[bytes[i]];
    } else {
        for (int i = 0; i < count; i += 4)
            for (int k = 0; k < 3; ++k) to[i + k] = tone[bytes[i + k]];
    }
}

/// Samples of a row, or rows of a strip of columns, that are worked at a time.
constexpr int kRun = 4096, kRunRows = 256;

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

template <int Channels>
int SmoothRows(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
               const SmoothWeights* weights) {
    if (!weights) return kStatusNullPointer;
    if (const int status =
            CheckImages({Pixels<Channels>(src, srcStep), Pixels<Channels>(dst, dstStep)}, size))
        return status;
    Plan plan;
    if (!MakePlan(*weights, plan)) return kStatusBadArgument;

    constexpr int kRunPixels = kRun / Channels;
    std::uint8_t widened[kRun + 2 * kLargestSmoothRadius * Channels + kVectorBytes] = {};
    for (int y = 0; y < size.height; ++y) {
        const std::uint8_t* from = Row(src, srcStep, y);
        std::uint8_t* to = Row(dst, dstStep, y);
        for (int x = 0; x < size.width; x += kRunPixels) {
            const int pixels = Least(kRunPixels, size.width - x);
            CopyWidened<Channels>(from, size.width, x - plan.radius, pixels + 2 * plan.radius,
                                  widened);
            const std::uint8_t* centre = widened + plan.radius * Channels;
            std::uint8_t* run = to + static_cast<std::ptrdiff_t>(x) * Channels;
            for (int i = 0; i < pixels * Channels; i += kVectorBytes)
                Put<Channels>(run + i, Means(centre + i, Channels, plan),
                              Least(kVectorBytes, pixels * Channels - i), weights->tone);
        }
    }
    return kStatusOk;
}

/// Strips of columns, a vector wide, go through a buffer of their own: there the taps of a sample
/// lie close together however long the rows are.
template <int Channels>
int SmoothColumns(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                  IppiSize size, const SmoothWeights* weights) {
    if (!weights) return kStatusNullPointer;
    if (const int status =
            CheckImages({Pixels<Channels>(src, srcStep), Pixels<Channels>(dst, dstStep)}, size))
        return status;
    Plan plan;
    if (!MakePlan(*weights, plan)) return kStatusBadArgument;

    std::uint8_t strip[(kRunRows + 2 * kLargestSmoothRadius) * kVectorBytes] = {};
    const std::ptrdiff_t samples = static_cast<std::ptrdiff_t>(size.width) * Channels;
    for (std::ptrdiff_t x = 0; x < samples; x += kVectorBytes) {
        const int count = samples - x < kVectorBytes ? static_cast<int>(samples - x) : kVectorBytes;
        for (int y = 0; y < size.height; y += kRunRows) {
            const int rows = Least(kRunRows, size.height - y);
            for (int i = 0; i < rows + 2 * plan.radius; ++i)
                std::memcpy(strip + i * kVectorBytes,
                            Row(src, srcStep, Clamp(y + i - plan.radius, size.height)) + x,
                            static_cast<std::size_t>(count));
            for (int i = 0; i < rows; ++i)
                Put<Channels>(Row(dst, dstStep, y + i) + x,
                              Means(strip + (plan.radius + i) * kVectorBytes, kVectorBytes, plan),
                              count, weights->tone);
        }
    }
    return kStatusOk;
}

}  // namespace

int SmoothRows_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, const SmoothWeights* weights) {
    return SmoothRows<1>(src, srcStep, dst, dstStep, size, weights);
}
int SmoothRows_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size, const SmoothWeights* weights) {
    return SmoothRows<4>(src, srcStep, dst, dstStep, size, weights);
}
int SmoothColumns_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const SmoothWeights* weights) {
    return SmoothColumns<1>(src, srcStep, dst, dstStep, size, weights);
}
int SmoothColumns_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                          IppiSize size, const SmoothWeights* weights) {
    return SmoothColumns<4>(src, srcStep, dst, dstStep, size, weights);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
