// Foreground over background by alpha.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CAlphaBlend {
  public:
    /// dst = fg over bg, with straight or premultiplied colours; float results are not cut. `dst`
    /// may be either source. False for planes, and where a source's stride is not positive or the
    /// destination's is 0.
    bool Process(CFrame* fg, CFrame* bg, CFrame* dst, bool premultiplied);
    bool Process(const FrameParams& fg, const FrameParams& bg, FrameParams& dst,
                 bool premultiplied);

    /// The same on rows of a pixel type; spans are in pixels, and that of `dst` may be negative but
    /// for VideoSample.
    template <class Pixel>
    bool Process(const Pixel* fg, const Pixel* bg, Pixel* dst, unsigned int width,
                 unsigned int height, bool premultiplied, int spanFg, int spanBg, int spanDst);
};

}  // namespace brushworks::Processors
