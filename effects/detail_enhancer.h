// Broad local contrast: an unsharp mask as wide as a part of the picture, which brings shading back
// into flattened colours.
#pragma once

#include "frames/frame.h"
#include "frames/memory_allocator.h"

namespace brushworks {

/// Adds `amount` times the difference between each colour and its surroundings, which reach as far
/// as `size` (0 to about 1) tells for the height of the picture; twice as far to the sides when the
/// frames are fields. Byte colours are cut to 0..255, float ones are not cut; alpha in `dst` is not
/// written. Where `size` or `amount` is not above 0, or memory runs out, `src` is copied. Formats
/// without colours and frames without data are left alone. The frames may be one. Always true.
bool DetailEnchancer(CFrame* src, CFrame* dst, float amount, float size, bool field,
                     MemoryAllocator* allocator);

}  // namespace brushworks
