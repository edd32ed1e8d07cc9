// Paints a frame with strokes at random places, each in the average colour of the picture under it.
#pragma once

#include "effects/impressionist/stroke_line.h"
#include "frames/frame.h"

namespace brushworks {

/// Paints the destination with one stroke to ten pixels, each over those before it, in colours of
/// the source. The frames have one size and one colour format and share no memory.
void PaintStrokes(const CFrame& source, CFrame& destination, const Brush& brush,
                  RandomSequence& random);

}  // namespace brushworks
