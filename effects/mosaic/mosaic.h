// Mosaic: a shaken brick pattern, each brick filled with the average colour along a line through
// it, with or without black outlines.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CStainedGlass final : public CEffect {
  public:
    CStainedGlass();

  protected:
    bool Paint(RenderJob& job) override;
    bool GetGPUProbes(GPUProbes& probes) const override;
};

}  // namespace brushworks
