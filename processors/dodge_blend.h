// Colour dodge of one frame by another.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CDodgeBlend {
  public:
    /// A colour becomes base / (1 - blend), cut at the top; bytes as 256 base / (255 - blend). With
    /// `mono` the red sample is dodged and stands in all three colours. Alpha of `dst` is never
    /// written. A plane of bytes is dodged byte by byte. False for null frames or data and for
    /// other formats.
    bool Process(CFrame* base, CFrame* blend, CFrame* dst, bool mono);

    /// The same on rows of a pixel type of four samples; spans are in pixels.
    template <class Pixel>
    bool Process(const Pixel* base, const Pixel* blend, Pixel* dst, unsigned int width,
                 unsigned int height, bool mono, int spanBase, int spanBlend, int spanDst);
};

}  // namespace brushworks::Processors
