// Toonery Plus: a smoothed, contrast-shaped, layered paint picture with pencil lines laid over it,
// broad local contrast, and a mix with the source.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CCartoonPro final : public CEffect {
  public:
    CCartoonPro();

  protected:
    bool Paint(RenderJob& job) override;
    bool GetGPUProbes(GPUProbes& probes) const override;
};

}  // namespace brushworks
