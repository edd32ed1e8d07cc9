// A uniform fade of colours and alpha.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CAlphaFade {
  public:
    /// Scales alpha by `fade` (255ths for floats, 256ths for bytes, cut at the top; a negative one
    /// counts as 0 there) and each colour by the new alpha. Floats are cut to 0..1 first. Other
    /// formats are taken as rows of PixelFormatBGRA8. Always true.
    bool Process(CFrame* src, CFrame* dst, int fade);

    /// The same on rows of a pixel type; spans are in pixels.
    template <class Pixel>
    bool Process(const Pixel* src, Pixel* dst, unsigned int width, unsigned int height, int fade,
                 int spanSrc, int spanDst);
};

}  // namespace brushworks::Processors
