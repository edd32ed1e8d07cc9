// Where a resize takes its samples along one axis, and with which weights. Built once: its few
// results per row and column are the same for all variants.
#pragma once

#include <cstdint>

namespace brushworks {

inline constexpr int kMostTaps = 6;

/// How far taps reach beyond the source on either side, at most.
inline constexpr int kTapMargin = 8;

/// The taps of an interpolation; 0 for an unknown one.
int TapsOf(int interpolation);

/// One axis: the mapping, and the source positions that may be read, counted from the region's
/// corner.
struct ResizeAxis {
    double factor;
    double shift;
    int interpolation;
    std::int64_t lowest;
    std::int64_t highest;

    /// The first tap of destination position `x`; it lies at most kTapMargin beyond the source,
    /// however far away the position itself is. Stores TapsOf(interpolation) weights.
    std::int64_t FirstTap(int x, float* weights) const;

    /// The nearest position that may be read.
    std::int64_t Inside(std::int64_t position) const;
};

}  // namespace brushworks
