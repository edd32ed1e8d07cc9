// Dilation and erosion under a large ellipse, on the graphics card.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

class CDilateEllipseFast : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    /// Each pixel becomes the largest, or without `bMax` the smallest, sample of an ellipse around
    /// it, channel by channel. Like the width of Processors::CDilateEllipse, `nRadius` is the whole
    /// ellipse's: what is bright grows by nRadius / 2 | 1 pixels, by half of that up and down with
    /// `bHalfY`. With `bAlphaOnly` colours stay.
    ///
    /// The ellipse is put together from small rings of samples in stages of growing reach, so it is
    /// an approximation: from a reach of 7 on, its outline lies between 0.9 of the ellipse (0.8
    /// with `bHalfY`, whose vertical steps are cut to whole pixels) and the ellipse itself. A
    /// blurred small picture adds what surrounds a pixel on most sides; it fills narrow bays before
    /// their turn, and counts on samples from 0 to 1.
    ///
    /// `dst` and, where given, `pTmp0` and `pTmp1` are other textures of the source's size and
    /// format; their order of channels may be another. All are written.
    bool Process(const TextureParams& src, const TextureParams& dst, int nRadius, bool bHalfY,
                 bool bAlphaOnly, bool bMax, TextureParams* pTmp0, TextureParams* pTmp1);
    /// From a radius of 22 on the same at a smaller size, half at the least: the source is smoothed
    /// and shrunk, so that single pixels lose weight, and the result is enlarged linearly.
    bool ProcessResize(const TextureParams& src, const TextureParams& dst, int nRadius, bool bHalfY,
                       bool bAlphaOnly, bool bMax, TextureParams* pTmp0, TextureParams* pTmp1);
    bool IsSupported();

  private:
    struct Shape;
    struct Stage;
    static bool AreUsable(const TextureParams& src, const TextureParams& dst, int nRadius,
                          const TextureParams* pTmp0, const TextureParams* pTmp1);
    bool DrawStage(GLShaderProgram& program, const Shape& shape, const Stage& stage,
                   const TextureParams& from, const TextureParams& low, const TextureParams& next);
    bool Shrink(const TextureParams& src, const TextureParams& view);
};

}  // namespace brushworks::GPUProcessors
