// Water Color: tuned colours flattened by a wide median into painted patches, their edges
// sharpened.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CWaterColor final : public CEffect {
  public:
    CWaterColor();

  protected:
    bool Paint(RenderJob& job) override;
    bool GetGPUProbes(GPUProbes& probes) const override;
};

}  // namespace brushworks
