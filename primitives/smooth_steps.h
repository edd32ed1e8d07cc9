// The smoothing where the weights of all taps add up to 255 at most.
//
// No table is looked up for a tap. The weight of a tap falls in steps as the distance of the
// samples grows, and all taps of a kernel together have at most 255 steps; so a weight is a count
// of the steps not yet reached, which takes a comparison each and serves a whole vector at once.
#pragma once

#include "primitives/pixel_lanes.h"
#include "primitives/smooth.h"

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

class StepSmoother {
  public:
    /// Samples that are smoothed at once, and how they are laid out for it.
    static constexpr int kBlock = kVectorBytes;
    using Item = std::uint8_t;

    static void Take(const std::uint8_t* samples, const std::uint8_t*, std::ptrdiff_t count,
                     Item* items) {
        std::memcpy(items, samples, static_cast<std::size_t>(count));
    }

    /// False where the weights leave their domain.
    bool Open(const SmoothWeights& weights) {
        int sum = 0;
        for (int i = 0; i <= weights.radius; ++i) {
            const int spatial = weights.spatial[i];
            if (spatial < 0 || spatial > 256) return false;
            if (spatial > 0) sum += (spatial - 1) * (i < weights.radius ? 2 : 1);
        }
        if (sum > kLargestSum) return false;
        centre_ =
            static_cast<std::uint8_t>(weights.range[0] * weights.spatial[weights.radius] >> 8);
        int steps = 0;
        for (int i = 0; i < weights.radius; ++i)
            AddPair(steps, weights.radius - i, weights.spatial[i], weights.range);
        return true;
    }

    /// The weighted means at one block of items, whose taps lie `pitch` items apart. Inlined, its
    /// loop would share its registers with those around it.
    [[gnu::noinline]] void Means(const Item* centre, std::ptrdiff_t pitch,
                                 std::uint8_t* means) const {
        const U8 c = Load<U8>(centre);
        U8 weights = U8{} + centre_;
        const WideBytes wideC = Widen(c);
        // Neither sum leaves its lane: the weights sum to 255 at most.
        U16 even = wideC.even * centre_, odd = wideC.odd * centre_;
        for (int i = 0; i < pairs_; ++i) {
            const TapPair& pair = pair_[i];
            const std::ptrdiff_t offset = pair.distance * pitch;
            const U8 p = Load<U8>(centre - offset), q = Load<U8>(centre + offset);
            const I8 pApart = Apart(p, c), qApart = Apart(q, c);
            U8 pWeight = U8{} + pair.least, qWeight = pWeight;
            for (int s = pair.firstStep; s < pair.endOfSteps; ++s) {
                const Step step = step_[s];
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
        Store(means, (U8)(Quotients(even, sum.even + 1) | Quotients(odd, sum.odd + 1) << 8));
    }

  private:
    static constexpr int kLargestSum = 255;

    /// Adds the steps of one tap's weight.
    void AddPair(int& steps, int distance, int spatial, const int* range) {
        const auto weight = [&](int difference) { return range[difference] * spatial >> 8; };
        TapPair pair = {distance, static_cast<std::uint8_t>(weight(255)), steps, steps};
        for (int difference = 254; difference >= 0; --difference)
            if (const int height = weight(difference) - weight(difference + 1))
                step_[pair.endOfSteps++] = {static_cast<std::int8_t>(difference + 1 - 128),
                                            static_cast<std::uint8_t>(height)};
        if (pair.least == 0 && pair.endOfSteps == pair.firstStep) return;  // weighs nothing
        steps = pair.endOfSteps;
        pair_[pairs_++] = pair;
    }

    int pairs_ = 0;
    std::uint8_t centre_ = 0;  // weight of the centre
    TapPair pair_[kLargestSmoothRadius];
    Step step_[kLargestSum];
};

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
