#include "gpu/shader_program.h"

#include <algorithm>
#include <new>

namespace brushworks {
namespace {

/// Puts back a flag when a piece of work is over.
class FlagFor {
  public:
    FlagFor(bool& flag, bool value) : m_flag(flag), m_before(flag) { flag = value; }
    ~FlagFor() { m_flag = m_before; }
    FlagFor(const FlagFor&) = delete;
    FlagFor& operator=(const FlagFor&) = delete;

  private:
    bool& m_flag;
    const bool m_before;
};

/// The transposed matrix of N by N.
template <int N>
struct Transposed {
    explicit Transposed(const float* matrix) {
        for (int row = 0; row < N; ++row)
            for (int column = 0; column < N; ++column)
                values[column * N + row] = matrix[row * N + column];
    }
    float values[N * N];
};

}  // namespace

void GLShaderProgram::Init(IVideoHostGL* pHostGL, IGLContext* pContext, IGLShader* pShader) {
    Free();
    if (!pShader || !pShader->IsValid()) return;
    m_pHostGL = pHostGL;
    m_pContext = pContext;
    m_pShader = pShader;
    m_pHostGL->AddRef();
    if (m_bTrackUniforms) ReadUniforms();
}

void GLShaderProgram::Free() {
    if (m_pShader && m_pHostGL) m_pHostGL->FreeShader(m_pShader);
    if (m_pHostGL) m_pHostGL->Release();
    m_pShader = nullptr;
    m_pHostGL = nullptr;
    m_pContext = nullptr;
    m_nUniforms = 0;
    m_vUniformNames.clear();
    m_vUniformSet.clear();
}

void GLShaderProgram::ReadUniforms() try {
    const int count = m_pShader->GetUniforms(nullptr);
    if (count <= 0) return;
    m_nUniforms = static_cast<std::size_t>(count);
    std::vector<char> entries(m_nUniforms * IGLShader::kUniformEntryBytes);
    m_pShader->GetUniforms(entries.data());
    for (std::size_t i = 0; i < m_nUniforms; ++i)
        m_vUniformNames.emplace_back(&entries[i * IGLShader::kUniformEntryBytes]);
    m_vUniformSet.assign(m_nUniforms, 0);
} catch (const std::bad_alloc&) {  // an empty list: no uniform is found
    m_vUniformNames.clear();
    m_vUniformSet.clear();
}

bool GLShaderProgram::Knows(const char* szName) {
    if (!m_pShader || !szName) return false;
    if (!m_bTrackUniforms) return true;
    const auto found = std::find(m_vUniformNames.begin(), m_vUniformNames.end(), szName);
    if (found == m_vUniformNames.end()) return false;
    m_vUniformSet[static_cast<std::size_t>(found - m_vUniformNames.begin())] = 1;
    return true;
}

bool GLShaderProgram::CheckUniform(const char* szName) {
    return !m_bTrackUniforms || Knows(szName);
}

bool GLShaderProgram::SetInt1(const char* szName, int a) {
    return Knows(szName) && m_pShader->SetInt1(szName, a);
}

bool GLShaderProgram::SetInt2(const char* szName, int a, int b) {
    return Knows(szName) && m_pShader->SetInt2(szName, a, b);
}

bool GLShaderProgram::SetFloat1(const char* szName, float a) {
    return Knows(szName) && m_pShader->SetFloat1(szName, a);
}

bool GLShaderProgram::SetFloat2(const char* szName, float a, float b) {
    return Knows(szName) && m_pShader->SetFloat2(szName, a, b);
}

bool GLShaderProgram::SetFloat3(const char* szName, float a, float b, float c) {
    return Knows(szName) && m_pShader->SetFloat3(szName, a, b, c);
}

bool GLShaderProgram::SetFloat4(const char* szName, float a, float b, float c, float d) {
    return Knows(szName) && m_pShader->SetFloat4(szName, a, b, c, d);
}

bool GLShaderProgram::SetMatf3(const char* szName, bool bTranspose, float* pMatrix) {
    if (!Knows(szName)) return false;
    return bTranspose ? m_pShader->SetMatf3(szName, Transposed<3>(pMatrix).values)
                      : m_pShader->SetMatf3(szName, pMatrix);
}

bool GLShaderProgram::SetMatf4(const char* szName, bool bTranspose, float* pMatrix) {
    if (!Knows(szName)) return false;
    return bTranspose ? m_pShader->SetMatf4(szName, Transposed<4>(pMatrix).values)
                      : m_pShader->SetMatf4(szName, pMatrix);
}

bool GLShaderProgram::SetTex2D(const char* szName, const TextureParams& tex) {
    return Knows(szName) && m_pShader->SetTex2D(szName, tex.pTexture);
}

bool GLShaderProgram::Bind(int nWidth, int nHeight) {
    if (!m_pShader || !m_pHostGL) return false;
    if (!m_pShader->Bind(nWidth, nHeight)) return false;
    m_nRTWidth = std::max(nWidth, 1);
    m_nRTHeight = std::max(nHeight, 1);
    if (m_bTrackUniforms) {
        std::fill(std::begin(m_abTexInfoSet), std::end(m_abTexInfoSet), false);
        std::fill(m_vUniformSet.begin(), m_vUniformSet.end(), static_cast<unsigned char>(0));
        AssignTargetUniforms();
    }
    return true;
}

void GLShaderProgram::AssignTargetUniforms() {
    const FlagFor internal(m_bInternalSet, true);
    auto scale = [](float r) { return r > 1 ? r / (r - 1) : 0.0f; };
    auto shift = [](float r) { return r > 1 ? -0.5f / (r - 1) : 0.5f; };
    const auto width = static_cast<float>(m_nRTWidth), height = static_cast<float>(m_nRTHeight);
    SetFloat2("vRTSize", width, height);
    SetFloat2("vRT2NORM_Scale", scale(width), scale(height));
    SetFloat2("vRT2NORM_Shift", shift(width), shift(height));
}

void GLShaderProgram::DescribeTexture(unsigned int nUnit, const TextureParams& tex) {
    if (!m_bTrackUniforms || m_bNoTextureInfo) return;
    const FlagFor internal(m_bInternalSet, true);
    const FlagFor reserved(m_bReserved, m_bReserved);
    SetTexInf(nUnit, tex, GPUStuff::kWhole);
}

}  // namespace brushworks
