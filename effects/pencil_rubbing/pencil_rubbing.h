// Pencil Rubbing: a relief kernel, turned to a chosen angle, runs over the picture as if paper lay
// on it and was rubbed; the colours are tuned after it.
#pragma once

#include "library/effect.h"

namespace brushworks {

class CPencilRubbing final : public CEffect {
  public:
    CPencilRubbing();

    /// Turns the eight outer elements of a 3 by 3 kernel by `angle` whole turns, in straight lines
    /// between neighbours; the centre stays.
    static void MatrixRotate(float* kernel, float angle);
    /// Cuts all four samples of the frame's upper left `width` by `height` float pixels to 0..1.
    static void ClampImage(CFrame* frame, int width, int height);

  protected:
    bool Paint(RenderJob& job) override;
};

}  // namespace brushworks
