// A weighted sum of two textures, limited to a range.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CCombine : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// `fC0` times `src0` plus `fC1` times `src1`, in all four channels. `dst` is neither source.
    bool Process(const TextureParams& src0, const TextureParams& src1, const TextureParams& dst,
                 float fC0, float fC1, float fMin, float fMax);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
