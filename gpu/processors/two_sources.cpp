#include "gpu/processors/two_sources.h"

#include "gpu/channel_order.h"
#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

bool CheckTwoSources(const TextureParams& src0, const TextureParams& src1,
                     const TextureParams& dst) {
    return CGPUProcessor::CheckTexture(src0) && CGPUProcessor::CheckTexture(src1) &&
           CGPUProcessor::CheckTexture(dst) && dst.pTexture != src0.pTexture &&
           dst.pTexture != src1.pTexture;
}

bool SetSwaps(GLShaderProgram& program, const TextureParams& src0, const TextureParams& src1,
              const TextureParams& dst) {
    return program.SetInt1("SwapChannelsSrc0", SwapFlag(src0.pfPixelFormat)) &&
           program.SetInt1("SwapChannelsSrc1", SwapFlag(src1.pfPixelFormat)) &&
           program.SetInt1("SwapChannelsDst", SwapFlag(dst.pfPixelFormat));
}

}  // namespace brushworks::GPUProcessors
