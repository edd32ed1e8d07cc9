#include "gpu/processors/blur.h"

#include "gpu/probes.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

bool CBlur::Process(const TextureParams& src, const TextureParams& dst, int nSizeX, int nSizeY,
                    TextureParams* pTmp, bool bCompareFormat) {
    using namespace CommonShaders;
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst) || (pTmp && !CheckTexture(*pTmp)) ||
        !IsTexturesEqual(src, dst, bCompareFormat) ||
        (pTmp && !IsTexturesEqual(src, *pTmp, bCompareFormat)) || nSizeX < 0 || nSizeY < 0)
        return false;
    ScratchTexture own(*m_pHelper);
    if (!pTmp) {
        if (!own.Make(src, src.pfPixelFormat)) return false;
        pTmp = &own;
    }
    const auto weights = [](int size) {
        return [size](GLShaderProgram& program) {
            return program.SetInt1("blurSize", size / 2) && program.SetInt1("isOdd", size % 2);
        };
    };
    return Draw(ssBlur_VBlur, src, *pTmp, weights(nSizeY)) &&
           Draw(ssBlur_HBlur, *pTmp, dst, weights(nSizeX));
}

bool CBlur::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssBlur_HBlur}) &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssBlur_VBlur});
}

}  // namespace brushworks::GPUProcessors
