#include "gpu/processors/filter_3x3.h"

#include "gpu/probes.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

bool CFilter3x3::Process(const TextureParams& src, const TextureParams& dst, float* pKernel,
                         bool bTransposed) {
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst) || !pKernel) return false;
    return Draw(CommonShaders::ssFilter3x3_Filter, src, dst, [&](GLShaderProgram& program) {
        program.SetMatf3("fMatrix", /*bTranspose=*/!bTransposed, pKernel);
        return true;
    });
}

bool CFilter3x3::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssFilter3x3_Filter});
}

}  // namespace brushworks::GPUProcessors
