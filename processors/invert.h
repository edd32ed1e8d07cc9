// Complements of samples.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CInvert {
  public:
    /// Complements every channel, alpha included: 1 minus a float sample, with no clamping, or all
    /// bits of a byte. The frames may be one. False for a destination that fits neither.
    bool Process(CFrame* src, CFrame* dst);
};

class CInvertChannel {
  public:
    /// Complements one channel in place; single planes whole, whatever `channel` says. The walk is
    /// linear over height times stride, slack included, so the buffer must hold its last row's
    /// slack.
    bool Process(CFrame* frame, int channel);
};

}  // namespace brushworks::Processors
