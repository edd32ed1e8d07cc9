// Charcoal: dark strokes on a coloured surface, from the blurred edges of a smoothed gray copy,
// with a share of the picture's own colours.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CCharcoal final : public CEffect {
  public:
    CCharcoal();

    /// Fills 256 bytes with the curve of a `contrast` from 0, the plain ramp, to 1.
    static void CreateGammaTable(float contrast, unsigned char* table);
    /// Puts the colours of the common region through that curve; the fourth sample is copied. The
    /// frames may be one.
    static void Contrast(CFrame* src, CFrame* dst, float contrast);

  protected:
    bool Paint(RenderJob& job) override;
    bool GetGPUProbes(GPUProbes& probes) const override;
    bool HasGLPath() const override { return true; }
    bool PaintGL(GPURenderJob& job) override;
};

}  // namespace brushworks
