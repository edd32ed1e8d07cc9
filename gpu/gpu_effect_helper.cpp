#include "gpu/gpu_effect_helper.h"

namespace brushworks {
namespace {

/// A reference on the host's maker of GL objects for the length of a call.
class HostGL {
  public:
    explicit HostGL(IVideoHost* host) {
        void* face = nullptr;
        if (host && host->QueryInterface(IID_VideoHostGL, &face) == kInterfaceFound)
            m_pHostGL = static_cast<IVideoHostGL*>(face);
    }
    ~HostGL() {
        if (m_pHostGL) m_pHostGL->Release();
    }
    HostGL(const HostGL&) = delete;
    HostGL& operator=(const HostGL&) = delete;
    explicit operator bool() const { return m_pHostGL != nullptr; }

  private:
    IVideoHostGL* m_pHostGL = nullptr;
};

bool IsRenderable(PixelFormat format) {
    return format == PixelFormatBGRA8 || format == PixelFormatARGB8 ||
           format == PixelFormatBGRA32f || format == PixelFormatARGB32f;
}

}  // namespace

bool GPUEffectHelper::GetGPUCaps(IVideoHost* pHost, IGLContext*, GPUCaps* pCaps,
                                 unsigned int nFlags) {
    const HostGL hostGL(pHost);
    return hostGL && GetGPUCapsGL(pHost, pCaps, nFlags);
}

bool GPUEffectHelper::RenderGPU(RenderType, IVideoHost* pHost, IGLContext*, TextureParams* pSrc,
                                TextureParams* pSrc2, TextureParams* pDst, RenderInfo* pInfo) {
    if (!pHost || !pInfo || !pSrc || !pDst || !IsRenderable(pSrc->pfPixelFormat)) return false;
    const HostGL hostGL(pHost);
    return hostGL && RenderGL(pHost, pSrc, pSrc2, pDst, pInfo);
}

}  // namespace brushworks
