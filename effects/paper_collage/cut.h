// Cuts a picture's brightness into levels and finds the colour of each.
#pragma once

#include <span>

#include "effects/paper_collage/levels.h"
#include "frames/frame.h"

namespace brushworks {

/// `gray`, a plane of brightness, becomes the plane of the levels' values; `levels` takes value and
/// average colour of each, blue in the low byte. A level that no pixel belongs to is black.
/// `picture` has the plane's size, in bytes with blue first.
void CutIntoLevels(CFrame& gray, const CFrame& picture, float balance, std::span<Level> levels);

}  // namespace brushworks
