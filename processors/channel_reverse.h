// Reverses or permutes the four channels of each pixel: what turns alpha-last layouts into
// alpha-first ones and back.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CChannelReverse {
  public:
    /// Writes each pixel's samples in the order 3, 2, 1, 0; the frames may be one. False for null
    /// frames or data and for formats without four channels.
    bool Process(CFrame* src, CFrame* dst);
    bool Process8u(CFrame* src, CFrame* dst);
    bool Process32f(CFrame* src, CFrame* dst);

    /// In place: channel k takes the old channel order[k]. On float frames the result is false even
    /// though the work is done, unless an index above 3 refused it: nobody may read it as failure.
    bool Process(CFrame* frame, unsigned int* order);
    bool Process8u(CFrame* frame, unsigned int* order);
};

}  // namespace brushworks::Processors
