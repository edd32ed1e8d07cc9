// How a recorded picture must be turned to stand upright: phones and cameras store it as they were
// held and note the turn beside it.
#pragma once

#include <cstddef>
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
    /// The turn back.
    Orientation inverse() const { return {rightX, downX, rightY, downY}; }
    bool operator==(const Orientation&) const = default;
};

/// Packed pixels in memory that someone else owns.
struct PixelView {
    std::uint8_t* data;
    int width;
    int height;
    std::ptrdiff_t span;  ///< bytes from one row to the next
    int bytes;            ///< of a pixel: 4 or 16
};

/// From a display matrix of nine numbers; upright for null and for turns by other angles.
Orientation orientationOf(const std::int32_t* displayMatrix);

/// The pixels of a frame of media::bgraRaster.
inline PixelView viewOf(const AVFrame& bgra) {
    return {bgra.data[0], bgra.width, bgra.height, bgra.linesize[0], 4};
}

/// Writes `source` turned into `target`. Both have the same pixels, and sizes that fit.
void turn(const PixelView& source, const Orientation& orientation, const PixelView& target);

}  // namespace brushworks::media
