// Resamples a rectangle of one frame into a rectangle of another.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CResize {
  public:
    /// `interpolation` is 0 nearest, 1 linear, 2 cubic, 3 Lanczos; any other is linear. A factor of
    /// exactly 0.0 is that of the rectangles' sizes. False for frames that differ in bytes per
    /// pixel and rectangles outside their frame; formats without a resize, and a want of work
    /// memory, are true with nothing done.
    bool Process(CFrame* src, CFrame* dst, tagRECT srcRect, tagRECT dstRect, int interpolation,
                 double xFactor, double yFactor, double xShift, double yShift);
};

}  // namespace brushworks::Processors
