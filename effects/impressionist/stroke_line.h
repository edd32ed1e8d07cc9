// One stroke: a straight line at a random place, with a width.
#pragma once

#include <cstdint>

#include "library/random_sequence.h"

namespace brushworks {

/// What all strokes of a frame have in common.
struct Brush {
    int length;        ///< pixels along the stroke
    int thickness;     ///< pixels across it
    float angle;       ///< radians
    bool randomAngle;  ///< each stroke draws an angle of its own
    bool randomSize;   ///< each stroke draws a length, up to twice `length`
    float aspect;      ///< width of a pixel over its height
};

/// From start to end, `width` pixels across the main axis. The start lies in the frame or just past
/// its last row or column.
struct StrokeLine {
    std::int32_t x1, y1;
    std::int32_t x2, y2;
    float width;
};

/// How far a line goes along each axis, both in widths of a pixel.
struct Spread {
    Spread(const StrokeLine& line, float aspect);

    bool IsSteep() const { return dx < dy; }

    std::int64_t dx, dy;
};

/// Throws a stroke onto a frame of `width` by `height` pixels.
StrokeLine GetRandomLine(RandomSequence& random, int width, int height, const Brush& brush);

}  // namespace brushworks
