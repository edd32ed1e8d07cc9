// The whole brick pattern of Mosaic.
#pragma once

#include "frames/frame.h"
#include "frames/memory_allocator.h"

namespace brushworks {

/// Lays the bricks over a white destination of bytes and colours them from the source. `size` is
/// half a brick's width in 0.3 frame heights; `jitterX` and `jitterY` narrow the range in which the
/// points are shaken. The float without a name is not read. Without `borders` the bricks meet; with
/// both flags black lines stand between them.
void AddFacets(CFrame* source, CFrame* destination, float size, float, float jitterX, float jitterY,
               bool wantOutlines, bool borders, float aspect, MemoryAllocator* allocator);

}  // namespace brushworks
