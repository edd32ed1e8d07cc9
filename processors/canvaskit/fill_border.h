// Makes a frame larger than another and fills it with that one and its repeated edges.
#pragma once

#include "frames/frame.h"

namespace brushworks {
class MemoryAllocator;
}

namespace brushworks::Canvaskit {

class CFillBorder {
  public:
    /// Makes `dst`, another frame than `src`, `left` wider on both sides and `top` higher above and
    /// below, as PixelFormatBGRA8, and fills it. For 1 and 4 bytes a pixel. The result has the
    /// opposite sense of all others: false once the frame is filled, true if that failed. Nobody
    /// may rely on it; a frame without data tells that there was no memory.
    bool Process(CFrame& src, CFrame& dst, int left, int top, MemoryAllocator* allocator);
    /// The same border on all sides.
    bool Process(CFrame& src, CFrame& dst, int border, MemoryAllocator* allocator);
};

}  // namespace brushworks::Canvaskit
