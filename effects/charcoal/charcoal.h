// Charcoal: dark strokes on a coloured surface, from the blurred edges of a smoothed gray copy,
// with a share of the picture's own colours.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CCharcoal final : public CEffect {
  public:
    CCharcoal();
};

}  // namespace brushworks
