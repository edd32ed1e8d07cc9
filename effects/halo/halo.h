// Aurascope Plus, the halo: bright parts are dilated into soft glowing shapes, sharpened at their
// edges, and mixed back over the picture.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CAurascope final : public CEffect {
  public:
    CAurascope();

  protected:
    bool Paint(RenderJob& job) override;
    bool GetGPUProbes(GPUProbes& probes) const override;
};

}  // namespace brushworks
