// Where a resize takes its samples along one axis, and with which weights. Built once: its few
// results per row and column are the same for all variants.
#pragma once

#include <cstdint>

namespace brushworks {

inline constexpr int kMostTaps = 6;

/// The taps of an interpolation; 0 for an unknown one.
int TapsOf(int interpolation);

/// A source position and what its sample counts.
struct ResizeTap {
    std::int32_t at;
    float weight;
};

/// One axis: the mapping, and the source positions that may be read, counted from the region's
/// corner.
struct ResizeAxis {
    double factor;
    double shift;
    int interpolation;
    std::int64_t lowest;
    std::int64_t highest;

    /// Stores the TapsOf(interpolation) taps of destination position `x`, counted from `lowest` on;
    /// those outside have come to the nearest position that may be read.
    void TapsAt(int x, ResizeTap* taps) const;
};

}  // namespace brushworks
