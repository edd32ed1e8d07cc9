// The bracket that every GPU call of an effect passes through on its way to the effect.
#pragma once

#include "brushworks/effect.h"
#include "gpu/gpu_helper.h"

namespace brushworks {

/// Implements the two GPU operations of the contract; effects supply the pair that they call, and
/// are their own helpers while they run. The host's blend state is saved before and put back after;
/// blending itself is off afterwards, whatever it was.
class GPUEffectHelper : public IVideoGPUEffect, public GPUHelper {
  public:
    bool GetGPUCaps(IVideoHost* pHost, IGLContext* pContext, GPUCaps* pCaps,
                    unsigned int nFlags) override;
    bool RenderGPU(RenderType eType, IVideoHost* pHost, IGLContext* pContext, TextureParams* pSrc,
                   TextureParams* pSrc2, TextureParams* pDst, RenderInfo* pInfo) override;

    /// Answers for the current context. False, with `*pCaps` untouched, without an IVideoHostGL; an
    /// unsupported card is a true result that says no.
    virtual bool GetGPUCapsGL(IVideoHost* pHost, GPUCaps* pCaps, unsigned int nFlags) = 0;
    /// Renders with the current context. Leaves no GL object of its own behind, also when it fails.
    virtual bool RenderGL(IVideoHost* pHost, TextureParams* pSrc, TextureParams* pSrc2,
                          TextureParams* pDst, RenderInfo* pInfo) = 0;
};

}  // namespace brushworks
