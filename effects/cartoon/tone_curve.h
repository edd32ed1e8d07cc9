// The tone curve of paint and lines: between a gamma curve and an S, and always applied twice.
#pragma once

#include "frames/frame.h"

namespace brushworks {

/// Puts every colour byte through the curve, and the result through it again: half of its strength
/// lies in that. `contrast` goes from a pure gamma curve (0) to an S upon it (1); the gamma is
/// `power` to 2 `offset` - 1, so that an `offset` of 0.5 leaves it at 1. The fourth byte of a pixel
/// is copied. For frames of four bytes and planes of bytes; false for null frames, frames without
/// data and frames that differ in bytes per pixel. The frames may be one.
bool Contrast(CFrame* source, CFrame* destination, float contrast, float offset, float power);

}  // namespace brushworks
