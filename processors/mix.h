// A weighted sum of two frames into a third.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CMix {
  public:
    /// Every sample, alpha too, becomes wa a + wb b with weights cut to 0..1. Where they add up to
    /// more than 1, float results are cut at 1, but never at 0; bytes, whose weights are rounded to
    /// 255ths and whose sums are truncated, are cut at 255. `dst` may be `a` or `b`.
    bool Process(CFrame* a, CFrame* b, CFrame* dst, float wa, float wb);

    /// The same on rows of a pixel type; spans are in pixels.
    template <class Pixel>
    bool Process(const Pixel* a, const Pixel* b, Pixel* dst, unsigned int width,
                 unsigned int height, float wa, float wb, int spanA, int spanB, int spanDst);
};

}  // namespace brushworks::Processors
