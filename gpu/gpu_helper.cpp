// The host's objects: what a pass makes, binds and frees.
#include "gpu/gpu_helper.h"

#include "gpu/gl_api.h"

namespace brushworks {

void GPUHelper::SetParams(IVideoHostGL* pHostGL, IGLContext* pContext) {
    m_pHostGL = pHostGL;
    m_pContext = pContext;
    m_pCurrentShader = nullptr;
    if (!pContext) {
        m_Blender.Terminate();
        return;
    }
    if (const ARBHelper* record = pContext->GetARBHelper())
        static_cast<ARBHelper&>(*this) = *record;
    m_Blender.Initialize(pContext);
    m_nTextures = m_nShaders = m_nBuffers = 0;
    m_bStatesSet = false;
}

bool GPUHelper::Count(bool made, std::uint32_t& counter) {
    counter += made ? 1 : 0;
    return made;
}

bool GPUHelper::CreateTexture(TextureParams& tex, int nWidth, int nHeight, PixelFormat pf,
                              void* pData, int nRowSpan) {
    return CreateNamedTexture(tex, nullptr, nWidth, nHeight, pf, pData, nRowSpan, nullptr);
}

bool GPUHelper::CreateNamedTexture(TextureParams& tex, const char* szName, int nWidth, int nHeight,
                                   PixelFormat pf, void* pData, int nRowSpan, bool* pbExisted) {
    return Count(m_pHostGL->CreateTexture(m_pContext, tex, szName, nWidth, nHeight, pf, pData,
                                          nRowSpan, pbExisted),
                 m_nTextures);
}

bool GPUHelper::FreeTexture(TextureParams& tex) {
    const bool valid = tex.pTexture && tex.pTexture->IsValid();
    if (valid) --m_nTextures;
    m_pHostGL->FreeTexture(&tex, valid);
    return true;
}

bool GPUHelper::CreateBuffer(IGLBuffer*& pBuffer, const void* pData, int nSize,
                             unsigned int nUsage) {
    return Count(m_pHostGL->CreateBuffer(m_pContext, &pBuffer, pData, nSize, nUsage, 0, 0),
                 m_nBuffers);
}

bool GPUHelper::BindBuffer(unsigned int nTarget, IGLBuffer* pBuffer) {
    return pBuffer ? pBuffer->Bind(nTarget) : m_pContext->BindBuffer(nTarget, nullptr);
}

bool GPUHelper::FreeBuffer(IGLBuffer* pBuffer) {
    const bool valid = pBuffer && pBuffer->IsValid();
    if (valid) --m_nBuffers;
    m_pHostGL->FreeBuffer(pBuffer, valid);
    return true;
}

bool GPUHelper::CreateShader(ShaderStruct vs, ShaderStruct fs, GLShaderProgram& prog) {
    return CreateShaderG(vs, fs, ShaderStruct{}, prog);
}

bool GPUHelper::CreateShaderG(ShaderStruct vs, ShaderStruct fs, ShaderStruct gs,
                              GLShaderProgram& prog) {
    IGLShader* shader = nullptr;
    const bool made = m_pHostGL->CreateShader(m_pContext, &shader, vs.pData, fs.pData, gs.pData,
                                              vs.nSize, fs.nSize, gs.nSize, vs.nSize2, fs.nSize2,
                                              gs.nSize2, vs.nCheck, fs.nCheck, gs.nCheck);
    prog.Init(m_pHostGL, m_pContext, shader);
    return Count(made, m_nShaders);
}

bool GPUHelper::BindShader(GLShaderProgram& prog) {
    m_pCurrentShader = &prog;
    return prog.Bind(m_nRTWidth, m_nRTHeight);
}

bool GPUHelper::FreeShader(GLShaderProgram& prog) {
    if (m_pCurrentShader == &prog) m_pCurrentShader = nullptr;
    if (prog.Shader() && prog.Shader()->IsValid()) --m_nShaders;
    prog.Free();
    return true;
}

bool GPUHelper::SetRenderTarget(const TextureParams* pTex, bool bMultisample, bool b1, bool b2) {
    m_bMultisampleTarget = pTex && bMultisample;
    int samples = 0;
    if (bMultisample) {
        m_pContext->GetIntegerv(GL_MAX_SAMPLES_EXT, &samples, 1);
        while (samples > 7) samples /= 2;
    }
    // The host is asked for the same count until it gives in: multisampling has no step down.
    while (!m_pHostGL->SetRenderTarget(m_pContext, pTex, samples, b1, b2))
        if (samples <= 0) return false;
    m_nRTWidth = pTex ? pTex->nWidth : 0;
    m_nRTHeight = pTex ? pTex->nHeight : 0;
    return true;
}

bool GPUHelper::ResolveRenderTarget(TextureParams& tex) {
    if (!m_bMultisampleTarget) return true;
    m_bMultisampleTarget = false;
    return m_pHostGL->ResolveRenderTarget(m_pContext, &tex);
}

bool GPUHelper::glDisable(unsigned int nCap) {
    return m_pContext->Disable(nCap);
}

}  // namespace brushworks
