#include "gpu/processors/clamp.h"

#include "gpu/probes.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

bool CClamp::Process(const TextureParams& src, const TextureParams& dst, float fMin, float fMax) {
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst) ||
        !IsTexturesEqual(src, dst, /*bCompareFormat=*/true) || !(fMax > fMin))
        return false;
    return Draw(CommonShaders::ssClamp_FClamp, src, dst, [&](GLShaderProgram& program) {
        program.SetFloat1("fMin", fMin);
        program.SetFloat1("fMax", fMax);
        return true;
    });
}

bool CClamp::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssClamp_FClamp});
}

}  // namespace brushworks::GPUProcessors
