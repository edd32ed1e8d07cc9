// Paper Collage: the picture's brightness cut into 2 to 8 sheets of coloured paper, laid over each
// other from the darkest up, each throwing a soft shadow on what lies beneath.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CEmbossedPaper final : public CEffect {
  public:
    CEmbossedPaper();

  protected:
    bool Paint(RenderJob& job) override;
    bool GetGPUProbes(GPUProbes& probes) const override;
};

}  // namespace brushworks
