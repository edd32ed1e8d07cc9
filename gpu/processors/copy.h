// Copies a texture, and changes its channel order where the two differ.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CCopy : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// Nearest texels: sizes may differ, corners meet corners.
    bool Process(const TextureParams& src, const TextureParams& dst);
    /// Into the render target that is set.
    bool ToCurrentRT(const TextureParams& src, bool bSwap);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
