// Fills the bricks of Mosaic from their seeds.
#pragma once

#include <cstdint>

#include "frames/frame.h"
#include "frames/memory_allocator.h"

namespace brushworks {

/// A colour and where it starts to flow.
struct FillPoint {
    std::uint32_t color;  ///< red in the low byte, then green, then blue; the top byte is empty
    std::int32_t x, y;    ///< inside the frame
};

// Fills from each point in turn, so that the last point of an area decides its colour. A point on a
// pixel whose bytes are all 0 moves to the first neighbour that differs, left, right, above or
// below; without one it is left out. Alpha keeps its values. The frame is untouched when memory
// runs out. The border colour plays no part: an area ends where its own colour does.
void FloodFillBGRA8(CFrame* frame, const FillPoint* points, int count, unsigned int borderColor,
                    MemoryAllocator* allocator);
void FloodFillARGB8(CFrame* frame, const FillPoint* points, int count, unsigned int borderColor,
                    MemoryAllocator* allocator);

}  // namespace brushworks
