// Smoothing along one axis that keeps edges: half of a separated bilateral filter.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CBilateralFast : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    enum Direction { kVertical = 1, kHorizontal = 2 };

    /// `nKernel` is the span in texels; below 1 makes this a copy. The sigmas say how far colours
    /// and places may lie apart to be mixed; the place runs to (1.1 - `fPosSigma`) / 2 at the
    /// span's ends. Another direction is an error.
    bool ProcessDirection(const TextureParams& src, const TextureParams& dst, int nKernel,
                          float fValSigma, float fPosSigma, Direction eDirection);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
