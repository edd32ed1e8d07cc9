// Lays one texture over another in one of nine modes.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CBlend : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    enum BlendTypeEnum : unsigned int {
        kHue,
        kPop,
        kScreen,
        kMultiply,
        kLighten,
        kDarken,
        kDodge,
        kColorBurn,
        kNegation
    };

    /// `src0` is the base, whose alpha is kept, and `src1` the layer over it. The base agrees in
    /// size and format with the layer or with `dst`. `bMonochrome`, which only kDodge reads, blends
    /// red and gives it in all colours. A type beyond these draws nothing and is no error.
    bool Process(const TextureParams& src0, const TextureParams& src1, const TextureParams& dst,
                 BlendTypeEnum eType, bool bMonochrome);
    /// For one mode.
    bool IsSupported(BlendTypeEnum eType);
};

}  // namespace brushworks::GPUProcessors
