// What a dilation knows of its mask: the horizontal runs that the mask consists of. For the
// morphology family alone.
#pragma once

#include "primitives/morphology.h"

namespace brushworks {

/// Set positions that lie side by side, relative to the anchor: columns left to right of a row.
struct MorphologyRun {
    int left, right, row;
};

struct IppiMorphologyState {
    int sampleBytes, channels;
    int rowWidth;
    int left, right, top, bottom;  ///< the box around all runs
    int longest;                   ///< pixels of the longest run
    std::size_t count;             ///< of the runs, at least 1
    /// Sorted, so that equal left and right ends follow one another, by ascending rows.
    const MorphologyRun* runs;
};

}  // namespace brushworks
