// Luminance in the shades of one colour.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CMonoChrome {
  public:
    /// Tints luminance by `color`: red in bits 0 to 7, green in 8 to 15, blue in 16 to 23. Alpha
    /// of `dst` becomes luminance over 255, next to nothing: 0 in bytes. The weights of luminance
    /// add up to 0.997. False for planes.
    bool Process(CFrame* src, CFrame* dst, unsigned int color);

    /// The same on rows of a pixel type; spans are in pixels.
    template <class Pixel>
    bool Process(const Pixel* src, Pixel* dst, unsigned int width, unsigned int height,
                 unsigned int color, int spanSrc, int spanDst);
};

}  // namespace brushworks::Processors
