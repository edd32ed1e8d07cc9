#include "gpu/processors/mix.h"

#include "gpu/probes.h"
#include "gpu/processors/two_sources.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

bool CMix::Process(const TextureParams& src0, const TextureParams& src1, const TextureParams& dst,
                   float fRed, float fGreen, float fBlue, float fAlpha) {
    if (!m_pHelper || !CheckTwoSources(src0, src1, dst)) return false;
    return Draw(CommonShaders::ssMix_FMix, src0, src1, dst, [&](GLShaderProgram& program) {
        return SetSwaps(program, src0, src1, dst) &&
               program.SetFloat4("vMix", fRed, fGreen, fBlue, fAlpha);
    });
}

bool CMix::Process(const TextureParams& src0, const TextureParams& src1, const TextureParams& dst,
                   float fMix) {
    return Process(src0, src1, dst, fMix, fMix, fMix, fMix);
}

bool CMix::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && IsProgramSupported(*m_pHelper, {&ssVertexBiTexture, &ssMix_FMix});
}

}  // namespace brushworks::GPUProcessors
