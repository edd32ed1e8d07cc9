// The frames that an effect works in when its steps know one layout only: bytes, blue first.
#pragma once

#include "frames/frame.h"
#include "library/effect.h"

namespace brushworks {

/// In PixelFormatBGRA8 these are views of the job's own frames, so that steps write straight into
/// the host's destination. For the other colour formats they are scratch frames: the source comes
/// converted, the destination holds nothing yet, and Finish brings it back.
class WorkingFrames {
  public:
    /// False for layouts that hold no colours, and when memory runs out.
    bool Open(RenderJob& job);
    /// Brings the working destination, colours and alpha, into the job's.
    void Finish(RenderJob& job);

    CFrame source;
    CFrame destination;
};

}  // namespace brushworks
