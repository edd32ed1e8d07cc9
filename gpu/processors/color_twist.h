// Multiplies the colours of a texture by a matrix.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CColorTwist : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// `m` has a row each for red, green and blue: the factors of red, green and blue and then the
    /// constant, on a scale of 0 to 1. Alpha is copied. Float results are not cut to any range.
    bool Process(const TextureParams& src, const TextureParams& dst, float (*m)[4]);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
