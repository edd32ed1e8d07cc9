// Edge-preserving smoothing with a tone curve: along the rows and then along the columns.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CSmooth : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// `fPos` and `fVal` say how far places and colours may lie apart to be mixed. `fRadius` is the
    /// span in 15ths of 240th parts of the height, `bDouble` on a field; at or below 0 it makes
    /// this a copy. `fContrast` mixes in an S-shaped curve, which acts once in each pass and so
    /// twice. Works at 8 bits whatever the formats.
    bool Process(const TextureParams& src, const TextureParams& dst, float fPos, float fVal,
                 float fRadius, float fContrast, bool bDouble);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
