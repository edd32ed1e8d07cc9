// Fills a texture with noise.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CNoiseGen : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// The whole texture, beyond its region too, from the sequence of rand(), which the caller may
    /// have seeded with srand().
    bool Process(const TextureParams& tex);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
