// A picture on its way from a texture to memory.
#pragma once

#include "brushworks/frame.h"
#include "host/gl/pixel_transfer.h"

namespace brushworks::host::gl {

/// Begins to read in its constructor and is done after finish(). [the context's thread, context
/// current]
class Readback {
  public:
    /// The frame's memory is written in finish().
    Readback(unsigned int texture, const Region& region, const PixelLayout& layout,
             const FrameParams& frame);
    Readback(Readback&& other) noexcept;
    Readback& operator=(Readback&&) = delete;
    ~Readback();

    /// Waits, and stores the picture; false when the driver lost it.
    bool finish();

  private:
    PixelLayout m_layout;
    FrameParams m_frame;
    int m_nBytes;
    unsigned int m_nBuffer = 0;
    void* m_pFence = nullptr;
};

}  // namespace brushworks::host::gl
