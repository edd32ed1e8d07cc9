// Oil: thick, flat daubs of paint. Every pixel takes the colour that is most common, by brightness,
// in a window around it; a colour tune, a smoothing and a mix with the source follow.
#pragma once

#include "library/effect.h"

namespace brushworks {

class COilPaint final : public CEffect {
  public:
    COilPaint();

  protected:
    bool Paint(RenderJob& job) override;
    bool GetGPUProbes(GPUProbes& probes) const override;
};

}  // namespace brushworks
