// Limits the samples of a texture to a range.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CClamp : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// All four channels. The textures agree in size and format, and `fMax` is above `fMin`.
    bool Process(const TextureParams& src, const TextureParams& dst, float fMin, float fMax);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
