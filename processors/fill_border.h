// Copies a frame into a larger one, its edges repeated into the margin.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CFillBorder {
  public:
    /// Places `src` at (`left`, `top`) in `dst` and fills all around it with the nearest source
    /// pixel, corners included. Frames of the same size, one frame given twice among them, take the
    /// inner rectangle of `src` instead, `left` and `top` narrower on each side: the border of that
    /// thickness is made anew from the interior. False for null frames or data, for formats and
    /// depths that do not pair, and where the source does not fit.
    bool Process(CFrame* src, CFrame* dst, int left, int top);

    /// The 8-bit route; refuses PixelFormatBGRA32f.
    bool Process8u(CFrame* src, CFrame* dst, int left, int top);
    /// The float route.
    bool Process32f(CFrame* src, CFrame* dst, int left, int top);
};

}  // namespace brushworks::Processors
