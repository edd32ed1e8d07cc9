// The way along a stroke: a line walk with error terms that yields, for each pixel of the main
// axis, the run of pixels across it.
#pragma once

#include <cstdint>

#include "effects/impressionist/stroke_line.h"

namespace brushworks {

/// A stroke's terms. Steep strokes walk along y, and their runs lie in rows; the others walk along
/// x, and their runs lie in columns.
struct StrokeWalk {
    StrokeWalk(const StrokeLine& line, float aspect);

    bool isSteep;
    std::int64_t start, end;   ///< on the main axis, in rising order
    std::int32_t cross;        ///< the start's place on the other axis
    float step;                ///< how the cross axis moves
    std::int64_t err, e1, e2;  ///< while err is below 0 it grows by e1, else by e2 with a move
    float width;
};

/// The pixels `begin` up to, not including, `end` of the line `at` across the main axis.
struct Run {
    std::int32_t at;
    std::int32_t begin, end;
};

/// The size of a frame as a walk sees it.
struct WalkLimits {
    int main, cross;
};

/// Lines along the main axis and places across it; what is beyond the frame is cut off.
struct WalkBox {
    std::int32_t mainBegin, mainEnd;
    std::int32_t crossBegin, crossEnd;
};

/// A box that holds all runs of a walk, found without walking.
WalkBox BoxAround(const StrokeWalk& walk, WalkLimits limits);

/// Writes the runs of a walk within the frame, in their order and without the empty ones, and
/// returns the end of them: no more than limits.main. `step` is the walk's own, or turned over for
/// the mirror image. The line of the start itself has no run.
Run* FindRuns(const StrokeWalk& walk, float step, WalkLimits limits, Run* runs);

}  // namespace brushworks
