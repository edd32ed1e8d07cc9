// Gaussian blur that also brightens.
#pragma once

#include "frames/frame.h"

namespace brushworks {
class MemoryAllocator;
}

namespace brushworks::Canvaskit {

class CGuassian {
  public:
    /// Makes a kernel with new[]: exp(-d^2 / (2 sigma^2)), 1 at the centre, to where that falls to
    /// a hundredth and one pixel further; with `halfHeight` half as far in height, where distances
    /// count double. It is not normalised, on purpose: its sum exceeds 1. False where it does not
    /// fit into memory or would be more than kLargestRadius wide to each side.
    bool BuildKernel(float sigma, bool halfHeight, float*& kernel, int& width, int& height);

    /// Filters the common region of 8-bit frames of 1, 3 or 4 bytes a pixel with that kernel, edges
    /// repeated: the picture brightens and saturates. The frames may be one.
    bool Process(CFrame& src, CFrame& dst, float sigma, bool halfHeight,
                 MemoryAllocator* allocator);

    static constexpr int kLargestRadius = 4096;
};

}  // namespace brushworks::Canvaskit
