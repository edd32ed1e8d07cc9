// Copies one channel, also between a frame of four channels and a plane.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CCopyPlane {
  public:
    /// A plane is the channel's place in memory, on the four-channel side alone. The pairing
    /// follows both frames' bytes per pixel; one that no copy serves, or a plane past 3, is false.
    bool Process(CFrame* src, CFrame* dst, int srcPlane, int dstPlane);
};

}  // namespace brushworks::Processors
