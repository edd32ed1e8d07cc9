// Paints a frame with strokes at random places, each in the average colour of the picture under it.
#pragma once

#include "effects/impressionist/stroke_line.h"
#include "frames/frame.h"
#include "frames/memory_allocator.h"

namespace brushworks {

/// Paints the destination with one stroke to ten pixels, each over those before it, in colours of
/// the source. The frames have one size and one colour format and share no memory. Throws
/// std::bad_alloc, with the destination as it was, when there is no scratch memory.
void PaintStrokes(const CFrame& source, CFrame& destination, const Brush& brush,
                  RandomSequence& random, MemoryAllocator& allocator);

}  // namespace brushworks
