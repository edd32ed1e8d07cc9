// Convolution with a kernel of any size, on the graphics card.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CFilter : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// Each pixel becomes the sum of the texels around it times the kernel, whose rows follow each
    /// other and whose cell (nAnchorX, nAnchorY) meets the pixel's own texel; the source repeats
    /// its edge. The kernel is neither normalised nor, unlike that of the filter for frames, walked
    /// in reverse. A float target keeps negative sums. Channels are taken as they come: source and
    /// target agree in their order. A float target is cleared as a whole texture.
    bool Process(const TextureParams& src, const TextureParams& dst, int nKernelW, int nKernelH,
                 float* pKernel, int nAnchorX, int nAnchorY);
    bool IsSupported();

  private:
    struct Kernel;
    bool AddTiles(const TextureParams& src, const TextureParams& sum, const Kernel& kernel);
};

}  // namespace brushworks::GPUProcessors
