// Colours times alpha.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CAlphaPremul {
  public:
    /// Multiplies each colour by its pixel's alpha. Alpha of `dst` is left alone, so it must hold
    /// the right one already; PixelFormatBGRA8 alone copies it. The frames may be one. False for
    /// planes.
    bool Process(CFrame& src, CFrame& dst);

    /// The same on rows of a pixel type; spans are in pixels.
    template <class Pixel>
    bool Process(const Pixel* src, Pixel* dst, unsigned int width, unsigned int height, int spanSrc,
                 int spanDst);
};

}  // namespace brushworks::Processors
