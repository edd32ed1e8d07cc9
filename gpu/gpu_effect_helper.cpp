#include "gpu/gpu_effect_helper.h"

#include "gpu/gl_api.h"
#include "gpu/host_gl.h"

namespace brushworks {
namespace {

bool IsRenderable(PixelFormat format) {
    return format == PixelFormatBGRA8 || format == PixelFormatARGB8 ||
           format == PixelFormatBGRA32f || format == PixelFormatARGB32f;
}

/// The helper has its host and context, and the host's blend state is saved, while this lives.
class InContext {
  public:
    InContext(GPUHelper& helper, const HostGL& hostGL, IGLContext* context) : m_helper(helper) {
        m_helper.SetParams(hostGL.get(), context);
    }
    ~InContext() { m_helper.SetParams(nullptr, nullptr); }
    InContext(const InContext&) = delete;
    InContext& operator=(const InContext&) = delete;

  private:
    GPUHelper& m_helper;
};

}  // namespace

bool GPUEffectHelper::GetGPUCaps(IVideoHost* pHost, IGLContext* pContext, GPUCaps* pCaps,
                                 unsigned int nFlags) {
    const HostGL hostGL(pHost);
    if (!hostGL) return false;
    const InContext inContext(*this, hostGL, pContext);
    m_bStatesSet = true;
    return GetGPUCapsGL(pHost, pCaps, nFlags);
}

bool GPUEffectHelper::RenderGPU(RenderType, IVideoHost* pHost, IGLContext* pContext,
                                TextureParams* pSrc, TextureParams* pSrc2, TextureParams* pDst,
                                RenderInfo* pInfo) {
    if (!pHost || !pInfo || !pSrc || !pDst || !IsRenderable(pSrc->pfPixelFormat)) return false;
    const HostGL hostGL(pHost);
    if (!hostGL || !pContext || !GLApi::Find()) return false;

    // A watcher of renders is told of the start here, and of the end when this scope ends.
    const InContext inContext(*this, hostGL, pContext);
    return RenderGL(pHost, pSrc, pSrc2, pDst, pInfo);
}

}  // namespace brushworks
