// Mixes two textures, channel by channel.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CMix : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// The floats are the shares of `src1` in red, green, blue and alpha. `dst` is neither source.
    bool Process(const TextureParams& src0, const TextureParams& src1, const TextureParams& dst,
                 float fRed, float fGreen, float fBlue, float fAlpha);
    /// One share for all.
    bool Process(const TextureParams& src0, const TextureParams& src1, const TextureParams& dst,
                 float fMix);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
