// A fixed sharpening.
#pragma once

#include "frames/frame.h"

namespace brushworks::Canvaskit {

class CSharpen {
  public:
    /// Sharpens the colours of frames with 4 bytes a pixel over 3 by 3 pixels, edges repeated; all
    /// other frames are true with nothing done.
    bool Process(CFrame& src, CFrame& dst);
    bool Process(CFrame& frame);
};

}  // namespace brushworks::Canvaskit
