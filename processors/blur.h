// A soft blur: a triangle of weights down the columns and then along the rows.
#pragma once

#include "frames/frame.h"

namespace brushworks {
class MemoryAllocator;
}

namespace brushworks::Processors {

class CBlur {
  public:
    /// `width` and `height` are the triangle's in pixels, cut to whole numbers and to 1000; below 1
    /// either makes this a copy. The frames may be one. PixelFormatARGB8 and PixelFormatARGB32f are
    /// turned round where `dst` has alpha last. Without `allChannels` alpha comes from `src`.
    ///
    /// The outermost two rows and columns of the picture take no part: repeats of the third stand
    /// for them and for all outside. (Frames too small for it leave out fewer.) A `dst` with a
    /// triangle's room to spare takes the picture in its middle, as CFilterRow places it.
    ///
    /// On 8-bit frames the time does not depend on the triangle. On float frames it grows with it,
    /// since their sums are rounded at every tap.
    bool Process(CFrame* src, CFrame* dst, float width, float height, MemoryAllocator* allocator,
                 bool allChannels);
};

}  // namespace brushworks::Processors
