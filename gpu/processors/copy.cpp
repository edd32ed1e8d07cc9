#include "gpu/processors/copy.h"

#include "gpu/channel_order.h"
#include "gpu/gl_api.h"
#include "gpu/gl_objects.h"
#include "gpu/probes.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

bool CCopy::Process(const TextureParams& src, const TextureParams& dst) {
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst)) return false;
    return m_pHelper->SetRenderTarget(&dst, false, false, false) &&
           ToCurrentRT(src, SwapFlag(src.pfPixelFormat, dst.pfPixelFormat) == 1);
}

bool CCopy::ToCurrentRT(const TextureParams& src, bool bSwap) {
    if (!m_pHelper || !CheckTexture(src)) return false;
    ScratchProgram program(*m_pHelper);
    if (!program.Make(CommonShaders::ssVertexDefault, CommonShaders::ssCopy_FCopy)) return false;
    src.pTexture->SetFilter(GL_NEAREST);
    m_pHelper->Blender().Disable();
    return m_pHelper->BindShader(program) && program.SetInt1("SwapChannels", bSwap ? 1 : 0) &&
           m_pHelper->BuildQuad(src, /*bFlip=*/false, nullptr);
}

bool CCopy::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssCopy_FCopy}) &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssCopy_FCopy_Channel});
}

}  // namespace brushworks::GPUProcessors
