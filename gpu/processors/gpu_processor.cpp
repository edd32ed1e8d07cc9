#include "gpu/processors/gpu_processor.h"

#include "gpu/gl_api.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

bool CGPUProcessor::CheckTexture(const TextureParams& tex) {
    return tex.nWidth > 0 && tex.nHeight > 0 && tex.pTexture && tex.pTexture->IsValid();
}

bool CGPUProcessor::IsTexturesEqual(const TextureParams& a, const TextureParams& b,
                                    bool bCompareFormat) {
    return a.nWidth == b.nWidth && a.nHeight == b.nHeight &&
           (!bCompareFormat || a.pTexture->GetFormat() == b.pTexture->GetFormat());
}

bool CGPUProcessor::Draw(const ShaderStruct& fragment, const TextureParams& src,
                         const TextureParams& dst, const SetUniforms& setUniforms) {
    ScratchProgram program(*m_pHelper);
    return program.Make(CommonShaders::ssVertexDefault, fragment) &&
           DrawWith(program, src, dst, setUniforms);
}

bool CGPUProcessor::Draw(const ShaderStruct& fragment, const TextureParams& src0,
                         const TextureParams& src1, const TextureParams& dst,
                         const SetUniforms& setUniforms) {
    ScratchProgram program(*m_pHelper);
    if (!program.Make(CommonShaders::ssVertexBiTexture, fragment)) return false;
    src0.pTexture->SetFilter(GL_NEAREST);
    src1.pTexture->SetFilter(GL_NEAREST);
    m_pHelper->Blender().Disable();
    return m_pHelper->SetRenderTarget(&dst, false, false, false) &&
           m_pHelper->BindShader(program) && setUniforms(program) &&
           m_pHelper->BuildQuad(src0, src1, /*bFlip=*/false, nullptr);
}

bool CGPUProcessor::DrawWith(GLShaderProgram& program, const TextureParams& src,
                             const TextureParams& dst, const SetUniforms& setUniforms) {
    src.pTexture->SetFilter(GL_NEAREST);
    m_pHelper->Blender().Disable();
    return m_pHelper->SetRenderTarget(&dst, false, false, false) &&
           m_pHelper->BindShader(program) && setUniforms(program) &&
           m_pHelper->BuildQuad(src, /*bFlip=*/false, nullptr);
}

}  // namespace brushworks::GPUProcessors
