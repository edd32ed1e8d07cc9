// Lets the bricks of Mosaic grow over the black lines between them.
#pragma once

#include "frames/frame.h"

namespace brushworks {

// One pass from the top left. A pixel whose four bytes are all 0 takes the mean colour of those of
// its four neighbours that have a byte other than 0, and keeps its alpha; without such a neighbour
// it stays. Each pixel sees those before it repaired: lines close from their top left side.
void RemoveBordersBGRA8(CFrame* frame);
void RemoveBordersARGB8(CFrame* frame);

}  // namespace brushworks
