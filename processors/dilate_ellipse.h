// Dilation under an ellipse.
#pragma once

#include "frames/frame.h"

namespace brushworks {
class MemoryAllocator;
}

namespace brushworks::Processors {

class CDilateEllipse {
  public:
    /// Each sample, alpha's among them, becomes the largest one under the ellipse that fills
    /// `width` by `height` pixels; `src` repeats its edge. `dst` is another frame and takes what it
    /// has room for. False where no mask can be made; the 8-bit formats report nothing else, and
    /// formats without a dilation are true with nothing done.
    bool Process(CFrame* src, CFrame* dst, int width, int height, MemoryAllocator* allocator);
};

}  // namespace brushworks::Processors
