// The host's frames as a render works on them.
#pragma once

#include "frames/frame.h"

namespace brushworks {

/// Views of the overlap of the host's two frames: frames of different sizes are not resized, and
/// nothing outside the overlap is read or written.
class HostFrames {
  public:
    /// False for null records or buffers, sizes below 1, rows that overlap in memory, and depths
    /// that do not suit the pixel format or differ: no render can make anything of those.
    bool Open(const FrameParams* sourceParams, const FrameParams* destinationParams);

    CFrame source;
    CFrame destination;

  private:
    CFrame m_wholeSource;
    CFrame m_wholeDestination;
};

}  // namespace brushworks
