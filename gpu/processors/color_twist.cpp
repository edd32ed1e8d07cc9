#include "gpu/processors/color_twist.h"

#include "gpu/channel_order.h"
#include "gpu/probes.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

bool CColorTwist::Process(const TextureParams& src, const TextureParams& dst, float (*m)[4]) {
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst) ||
        !IsTexturesEqual(src, dst, /*bCompareFormat=*/false) || !m)
        return false;
    return Draw(CommonShaders::ssColorTwist_CTwist, src, dst, [&](GLShaderProgram& program) {
        program.SetInt1("SwapChannelsSrc", SwapFlag(src.pfPixelFormat));
        program.SetInt1("SwapChannelsDst", SwapFlag(dst.pfPixelFormat));
        constexpr const char* kColumns[] = {"colorMatrix1", "colorMatrix2", "colorMatrix3",
                                            "colorMatrix4"};
        for (int column = 0; column < 4; ++column)
            program.SetFloat3(kColumns[column], m[0][column], m[1][column], m[2][column]);
        return true;
    });
}

bool CColorTwist::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssColorTwist_CTwist});
}

}  // namespace brushworks::GPUProcessors
