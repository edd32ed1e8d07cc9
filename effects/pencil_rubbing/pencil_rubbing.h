// Pencil Rubbing: a relief kernel, turned to a chosen angle, runs over the picture as if paper lay
// on it and was rubbed; the colours are tuned after it.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CPencilRubbing final : public CEffect {
  public:
    CPencilRubbing();
};

}  // namespace brushworks
