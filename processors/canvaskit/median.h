// The median of each pixel's surroundings.
#pragma once

#include "frames/frame.h"

namespace brushworks::Canvaskit {

class CMedian {
  public:
    /// Each sample becomes the median of its channel over 2 `x` + 1 by 2 `y` + 1 pixels, edges
    /// repeated. Alpha is left alone in PixelFormatBGRA8 and takes part in PixelFormatARGB8. All
    /// other frames are copied, and that is true.
    bool Process(CFrame& src, CFrame& dst, int x, int y);
    bool Process(CFrame& frame, int x, int y);
};

}  // namespace brushworks::Canvaskit
