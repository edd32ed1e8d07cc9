#include "gpu/processors/resize.h"

#include "gpu/channel_order.h"
#include "gpu/gl_api.h"
#include "gpu/probes.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

bool CResize::Process(const TextureParams& src, const TextureParams& dst) {
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst)) return false;
    return m_pHelper->SetRenderTarget(&dst, false, false, false) &&
           ToCurrentRT(src, SwapFlag(src.pfPixelFormat, dst.pfPixelFormat) == 1);
}

bool CResize::ToCurrentRT(const TextureParams& src, bool bSwap) {
    if (!m_pHelper || !CheckTexture(src)) return false;
    ScratchProgram program(*m_pHelper);
    if (!program.Make(CommonShaders::ssVertexDefault, CommonShaders::ssCopy_FCopy)) return false;
    src.pTexture->SetFilter(GL_LINEAR);
    m_pHelper->Blender().Disable();
    const bool drawn = m_pHelper->BindShader(program) &&
                       program.SetInt1("SwapChannels", bSwap ? 1 : 0) &&
                       m_pHelper->BuildQuad(src, /*bFlip=*/false, nullptr);
    src.pTexture->SetFilter(GL_NEAREST);
    return drawn;
}

bool CResize::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssCopy_FCopy});
}

}  // namespace brushworks::GPUProcessors
