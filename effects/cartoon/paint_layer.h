// The paint of the cartoon: patches of flat colour, in a few layers of brightness if that is asked
// for.
#pragma once

#include "frames/frame.h"

namespace brushworks {

struct PaintSettings {
    float strength;    ///< 0 to 1: how much of a layer's own mean its values become
    float layers;      ///< 0 for two layers, and above 1.96 none: all values stay
    float smooth;      ///< 0 to 1, the brush: up to a twentieth of the picture's full height
    float shift;       ///< 0 to 1 for an eighth of the colour wheel either way; 0.5 is neutral
    float color;       ///< 0 to 1 for a quarter to four times the saturation; 0.5 is neutral
    float sharpen;     ///< 0 to 1
    float contrast;    ///< 0 to 1
    float brightness;  ///< 0 to 1; 0.5 is neutral
};

/// Paints `destination`, without its alpha, from `source`, both in PixelFormatBGRA8. On a `field`
/// the brush is twice as wide as high. False, with the destination unwritten, where memory cannot
/// be had.
bool Clasterize(CFrame& source, CFrame& destination, const PaintSettings& set, bool field);

}  // namespace brushworks
