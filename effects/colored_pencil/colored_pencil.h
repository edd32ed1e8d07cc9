// Colored Pencil: flat areas fade towards paper white and edges keep their strength, channel by
// channel, as if drawn with pencils.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CColoredPencil final : public CEffect {
  public:
    CColoredPencil();

  protected:
    bool Paint(RenderJob& job) override;
    bool GetGPUProbes(GPUProbes& probes) const override;
};

}  // namespace brushworks
