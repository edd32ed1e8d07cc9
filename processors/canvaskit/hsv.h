// Scales hue, saturation and value.
#pragma once

#include "frames/frame.h"

namespace brushworks::Canvaskit {

class CHSV {
  public:
    /// Multiplies H, S and V of each pixel by the factors, 1.0 being neutral, in 16-bit precision;
    /// the first sample in memory counts as red. Alpha of `dst` is left undefined. The frames may
    /// be one. False, with `dst` unchanged, unless both have 4 bytes per pixel.
    bool Process(CFrame& src, CFrame& dst, float hue, float saturation, float value);
};

}  // namespace brushworks::Canvaskit
