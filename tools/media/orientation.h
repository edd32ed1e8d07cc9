// How a recorded picture must be turned to stand upright: phones and cameras store it as they were
// held and note the turn beside it.
#pragma once

#include <cstdint>

#include "media/av.h"

namespace brushworks::media {

/// A turn by a multiple of a right angle, perhaps with a mirroring: the pixel one to the right in
/// the recording is (rightX, rightY) further in the upright picture, the one below (downX, downY).
struct Orientation {
    int rightX = 1;
    int rightY = 0;
    int downX = 0;
    int downY = 1;

    bool isUpright() const { return *this == Orientation{}; }
    bool swapsSides() const { return rightX == 0; }
    bool operator==(const Orientation&) const = default;
};

/// From a display matrix of nine numbers; upright for null and for turns by other angles.
Orientation orientationOf(const std::int32_t* displayMatrix);

/// Writes `recorded` upright into `upright`. Both have four bytes per pixel, and sizes that fit.
void turnUpright(const AVFrame& recorded, const Orientation& orientation, AVFrame& upright);

}  // namespace brushworks::media
