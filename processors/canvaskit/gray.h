// Between colour frames and gray planes, and the negative of a plane.
#pragma once

#include "frames/frame.h"

namespace brushworks::Canvaskit {

class CRGBToGray {
  public:
    /// Weighs the first sample in memory as red. False unless `src` has 3 or 4 bytes a pixel and
    /// `dst` has 1.
    bool Process(CFrame& src, CFrame& dst);
};

class CGrayToRGB {
  public:
    /// The plane in all three colours; a fourth sample becomes 255. False unless `src` has 1 byte a
    /// pixel and `dst` has 3 or 4.
    bool Process(CFrame& src, CFrame& dst);
};

class CNegate {
  public:
    /// Complements a plane.
    bool Process(CFrame& frame);
};

}  // namespace brushworks::Canvaskit
