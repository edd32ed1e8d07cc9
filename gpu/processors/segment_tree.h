// The table of sums from which shaders take the mean colour of any rectangle.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CSegmentTree : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// Each pixel of `dst` becomes the sum of all texels from the source's corner to it, sampled to
    /// 0..255, in the form that gpu/shaders/include/summed_table.glsl tells and reads. `dst` is of
    /// the source's size, has floats and the source's order of channels. Passes grow with the
    /// logarithm of the size.
    bool Process(const TextureParams& src, const TextureParams& dst);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
