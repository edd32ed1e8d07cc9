// A soft blur: a triangle of weights down the columns and then along the rows.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CBlur : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// The triangle has `nSizeX` by `nSizeY` weights; 0 leaves an axis as it is. `pTmp`, which
    /// holds the picture between the two passes, is made for the call where it is null. The
    /// textures agree in size, with `bCompareFormat` in format too; source and target may be one.
    ///
    /// The outermost two rows and columns take no part: repeats of the third stand for them and for
    /// all outside. Time grows with the sizes.
    bool Process(const TextureParams& src, const TextureParams& dst, int nSizeX, int nSizeY,
                 TextureParams* pTmp, bool bCompareFormat);
    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
