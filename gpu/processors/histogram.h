// How many pixels have which sample value, counted on the graphics card.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CHistogram : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// Channels as textures name them: in a source with alpha first they read green, red, alpha,
    /// blue, and red counts green. Any other number means all four.
    enum ColorPlane { kRed = 1, kGreen = 2, kBlue = 4, kColors = 7, kAlpha = 8 };

    /// Counts the chosen channels into those of `dst`, a row of `nBuckets` pixels, at most 256, of
    /// floats; other formats count to 1. Samples are taken as bytes, floats by rounding, and sample
    /// s belongs to bucket s * nBuckets / 256. Needs pixel and vertex buffers.
    bool ProcessGPU(const TextureParams& src, const TextureParams& dst, ColorPlane ePlane,
                    int nBuckets);
    bool IsSupportedGPU();

  private:
    struct Planes;
    bool ReadPixels(const TextureParams& src, const Planes& planes, IGLBuffer& samples);
    bool CountPoints(const Planes& planes, unsigned int nPixels, unsigned int nAttribute,
                     int nBuckets, GLShaderProgram& program);
};

}  // namespace brushworks::GPUProcessors
