// Copies frames and rectangles.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CCopy {
  public:
    /// Copies the common rectangle. A format that no copy serves, with a destination of more than
    /// one byte a pixel, is true with nothing copied.
    bool Process(CFrame* src, CFrame* dst);

    /// Copies a rectangle to (`dx`, `dy`), cut to what both frames hold. True with nothing touched
    /// when nothing is left of it; false when the frames differ in bytes per pixel or no copy
    /// serves the format.
    bool Process(CFrame* src, int x, int y, int w, int h, CFrame* dst, int dx, int dy);
};

}  // namespace brushworks::Processors
