// Mural: tunes the colours, flattens the picture into soft patches, brings back shading with a wide
// unsharp mask, and mixes with the source.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CSmoother final : public CEffect {
  public:
    CSmoother();

  protected:
    bool Paint(RenderJob& job) override;
    bool GetGPUProbes(GPUProbes& probes) const override;
};

}  // namespace brushworks
