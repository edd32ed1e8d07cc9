// The host's frames, wrapped and checked: nothing walks a record that came from outside before it
// has passed here.
#pragma once

#include "frames/frame.h"

namespace brushworks {

/// A frame with a buffer, sizes of 1 or more, and rows of m_nDepth bytes a pixel that do not
/// overlap in memory.
bool HasSoundRows(const CFrame& frame);

/// Wraps a host's frame. False for null records or buffers, sizes below 1, rows that overlap in
/// memory, a depth that does not suit the pixel format, a stride that is not whole pixels, and
/// floats out of alignment.
bool OpenHostFrame(const FrameParams* params, CFrame& frame);

/// Both hold floats or neither does, so that what is aligned for one is for the other.
bool HaveSamplesAlike(const CFrame& a, const CFrame& b);

/// The same, in pixels of the same size.
bool HavePixelsAlike(const CFrame& a, const CFrame& b);

/// Views of the overlap of the host's two frames: frames of different sizes are not resized, and
/// nothing outside the overlap is read or written.
class HostFrames {
  public:
    /// False where OpenHostFrame is, and for frames whose pixels are not alike: nothing can be made
    /// of those. A source of single bytes goes with any destination.
    bool Open(const FrameParams* sourceParams, const FrameParams* destinationParams);

    CFrame source;
    CFrame destination;

  private:
    CFrame m_wholeSource;
    CFrame m_wholeDestination;
};

}  // namespace brushworks
