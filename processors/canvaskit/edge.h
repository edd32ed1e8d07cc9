// Edge detection on a plane: what a pixel has over the sum of its neighbours.
#pragma once

#include "frames/frame.h"

namespace brushworks::Canvaskit {

class CEdge {
  public:
    /// Makes a kernel of `size` by `size` with new[]: -1 all over, and at the element in the middle
    /// what brings the sum to 0. False for a size below 1 or above kLargestSize, or without memory.
    bool BuildKernel(int size, float*& kernel);

    /// Filters a plane, edges repeated. False unless `src` has 1 byte a pixel. The frames may be
    /// one.
    bool Process(CFrame& src, CFrame& dst, int size);

    static constexpr int kLargestSize = 8191;
};

}  // namespace brushworks::Canvaskit
