// Convolution with a square kernel of floats.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CFilter {
  public:
    /// Filters the pixels of `src` whose `size` by `size` neighbourhood lies in it, all but `size`
    /// / 2 on each side. They go to their own place in `dst` or, with `toOrigin`, to its corner, as
    /// far as it holds them; the frames may be one. The kernel is walked in reverse and is not
    /// normalised. False for formats without a filter, and where nothing is left to work on.
    bool Process(CFrame* src, CFrame* dst, float* kernel, int size, bool toOrigin);
};

}  // namespace brushworks::Processors
