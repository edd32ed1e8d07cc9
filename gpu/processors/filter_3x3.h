// Convolution with a kernel of 3 by 3, on the graphics card.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CFilter3x3 : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// CFilter's sum with nine cells and the anchor in the middle, in one pass. The kernel's rows
    /// follow each other or, with `bTransposed`, its columns. Other sizes are resampled by nearest
    /// texels.
    bool Process(const TextureParams& src, const TextureParams& dst, float* pKernel,
                 bool bTransposed);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
