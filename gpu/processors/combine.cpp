#include "gpu/processors/combine.h"

#include "gpu/probes.h"
#include "gpu/processors/two_sources.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

bool CCombine::Process(const TextureParams& src0, const TextureParams& src1,
                       const TextureParams& dst, float fC0, float fC1, float fMin, float fMax) {
    if (!m_pHelper || !CheckTwoSources(src0, src1, dst)) return false;
    return Draw(CommonShaders::ssCombine_FCombine, src0, src1, dst, [&](GLShaderProgram& program) {
        return SetSwaps(program, src0, src1, dst) && program.SetFloat2("vCoefficients", fC0, fC1) &&
               program.SetFloat2("vClamp", fMin, fMax);
    });
}

bool CCombine::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && IsProgramSupported(*m_pHelper, {&ssVertexBiTexture, &ssCombine_FCombine});
}

}  // namespace brushworks::GPUProcessors
