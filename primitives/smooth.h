// Edge-preserving smoothing of bytes along one axis: the inner loop of CSmooth. The names are this
// system's own, the argument order and the checks those of all primitives (copy.h).
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// Taps on one side of the centre, at most.
inline constexpr int kLargestSmoothRadius = 309;

/// What the sum of weights begins with: weights that add up to about 256, and such as add up to
/// about 65536. The finer ones hold a picture under any number of taps.
inline constexpr int kSmoothUnit = 1, kFineSmoothUnit = 256;

/// How taps are weighed. A tap with the sample p at a distance from the centre, whose sample is c,
/// has the weight range[|p - c|] * spatial / 256, rounded down.
struct SmoothWeights {
    int radius;          ///< 0 to kLargestSmoothRadius
    int unit;            ///< kSmoothUnit or kFineSmoothUnit
    const int* spatial;  ///< radius + 1 weights from the outermost tap to the centre; the other
                         ///< side mirrors them. 0 to 256 each; less 1 each, all sum to 255 at
                         ///< most. Fine ones: 0 to 32767; every other tap, counted from either
                         ///< end on, sums to 65535 at most, and so do the rest
    const int* range;    ///< 256 weights, 0 to 255, none above the one before it
    const std::uint8_t* tone;  ///< 256 values that results are replaced by
};

// Each sample by itself becomes tone[sum of weight * p / (unit + sum of weights)], rounded down.
// Taps outside the image repeat its edge. The destination is another image than the source. Weights
// outside their domain give -5; without work memory the status is -9.

int SmoothRows_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, const SmoothWeights* weights);
int SmoothRows_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size, const SmoothWeights* weights);
int SmoothColumns_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const SmoothWeights* weights);
int SmoothColumns_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                          IppiSize size, const SmoothWeights* weights);

}  // namespace brushworks
