// Painted patches: how far a brush reaches in a picture, and a median that rounds patches to it.
#pragma once

#include "frames/frame.h"

namespace brushworks {

/// Brush sizes are told for 240 lines. A field has half of a picture's lines, so that what reaches
/// as far along its rows spans half as many of them. `x` may be 0; `y` is at least 1.
struct BrushRadii {
    int x, y;

    BrushRadii(float size, int lines, bool isField);
};

/// Every colour of a BGRA8 frame becomes the median under the brush, in place; twice where the
/// picture has more than 500 lines, counted over both fields. A brush with an `x` of 0 leaves the
/// frame alone. False when the median fails.
bool SmoothPatches(CFrame& frame, BrushRadii brush, bool isField);

}  // namespace brushworks
