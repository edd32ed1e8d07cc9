// Posterize: turns the hue, scales saturation and brightness, and leaves only 2 to 9 levels of each
// colour, with a choice of dithers. Flat, printed-looking areas; at two levels the eight corners of
// the colour cube.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CPosterize final : public CEffect {
  public:
    CPosterize();

  protected:
    bool Paint(RenderJob& job) override;
    bool GetGPUProbes(GPUProbes& probes) const override;
    bool HasGLPath() const override { return true; }
    bool PaintGL(GPURenderJob& job) override;
};

}  // namespace brushworks
