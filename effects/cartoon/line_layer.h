// The lines of the cartoon: a pencil sketch on one channel, and how it darkens the paint.
#pragma once

#include "frames/frame.h"
#include "frames/memory_allocator.h"

namespace brushworks {

struct LineSettings {
    float cleanUp;  ///< 0 to 1: how much dirt between the lines is smoothed away
    float density;  ///< 0 to 1: how dark the lines become
    float width;    ///< 0 to 1, up to a fiftieth of the picture's height and two pixels
};

/// Draws `source`, in PixelFormatBGRA8, into the plane `lines`: dark where the picture is darker
/// than its surroundings, light elsewhere. The outermost ring of the picture takes no part. Leaves
/// `lines` as it is where memory cannot be had.
void SmoothLine(CFrame* source, CFrame* lines, const LineSettings& set, bool field,
                MemoryAllocator* allocator);

/// Draws `lines` over `paint`, in place, with the share `mix` of 0 to 1. A pixel changes only where
/// its line is darker than itself, and even a `mix` of 0 darkens it a little then.
void MergeLines(CFrame* paint, CFrame* lines, float mix);

}  // namespace brushworks
