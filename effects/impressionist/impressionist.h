// Impressionist: repaints the frame with many short, straight strokes at random places, each in the
// average colour of the picture under it.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CImpressionist final : public CEffect {
  public:
    CImpressionist();

  protected:
    bool Paint(RenderJob& job) override;
    bool TellsOfEveryRender() const override { return true; }
    bool GetGPUProbes(GPUProbes& probes) const override;
};

}  // namespace brushworks
