// Copies a texture to another size, and changes its channel order where the two differ.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CResize : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// Linear between texels: corners meet corners.
    bool Process(const TextureParams& src, const TextureParams& dst);
    /// Into the render target that is set.
    bool ToCurrentRT(const TextureParams& src, bool bSwap);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
