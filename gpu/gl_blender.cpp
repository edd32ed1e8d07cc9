#include "gpu/gl_blender.h"

#include <iterator>

#include "gpu/gl_api.h"

namespace brushworks {
namespace {

unsigned int GLEquation(GLBlender::BlendEquation equation) {
    constexpr unsigned int kEquations[] = {GL_FUNC_ADD, GL_FUNC_SUBTRACT, GL_MIN, GL_MAX};
    const auto index = static_cast<unsigned int>(equation);
    return index < std::size(kEquations) ? kEquations[index] : 0;
}

unsigned int GLFactor(GLBlender::BlendFactor factor) {
    constexpr unsigned int kFactors[] = {GL_ZERO,           GL_ONE,
                                         GL_SRC_COLOR,      GL_ONE_MINUS_SRC_COLOR,
                                         GL_DST_COLOR,      GL_ONE_MINUS_DST_COLOR,
                                         GL_SRC_ALPHA,      GL_ONE_MINUS_SRC_ALPHA,
                                         GL_DST_ALPHA,      GL_ONE_MINUS_DST_ALPHA,
                                         GL_CONSTANT_COLOR, GL_ONE_MINUS_CONSTANT_COLOR,
                                         GL_CONSTANT_ALPHA, GL_ONE_MINUS_CONSTANT_ALPHA};
    const auto index = static_cast<unsigned int>(factor);
    return index < std::size(kFactors) ? kFactors[index] : GL_ZERO;
}

std::uint32_t Read(IGLContext& context, unsigned int name) {
    int value = 0;
    context.GetIntegerv(name, &value, 1);
    return static_cast<std::uint32_t>(value);
}

}  // namespace

bool GLBlender::Initialize(IGLContext* pContext) {
    m_pContext = pContext;
    if (!pContext) return true;
    pContext->GetFloatv(GL_BLEND_COLOR, m_afBlendColor, 4);
    m_nEquationRGB = Read(*pContext, GL_BLEND_EQUATION_RGB);
    m_nEquationAlpha = Read(*pContext, GL_BLEND_EQUATION_ALPHA);
    m_nSrcRGB = Read(*pContext, GL_BLEND_SRC_RGB);
    m_nSrcAlpha = Read(*pContext, GL_BLEND_SRC_ALPHA);
    m_nDstRGB = Read(*pContext, GL_BLEND_DST_RGB);
    m_nDstAlpha = Read(*pContext, GL_BLEND_DST_ALPHA);
    return true;
}

bool GLBlender::Terminate() {
    if (m_pContext) {
        m_pContext->BlendColor(m_afBlendColor[0], m_afBlendColor[1], m_afBlendColor[2],
                               m_afBlendColor[3]);
        m_pContext->BlendEquationSeparate(m_nEquationRGB, m_nEquationAlpha);
        m_pContext->BlendFuncSeparate(m_nSrcRGB, m_nDstRGB, m_nSrcAlpha, m_nDstAlpha);
        m_pContext->Disable(GL_BLEND);
    }
    m_pContext = nullptr;
    return true;
}

bool GLBlender::Enable(BlendEquation eRGB, BlendEquation eAlpha) {
    return m_pContext && m_pContext->Enable(GL_BLEND) &&
           m_pContext->BlendEquationSeparate(GLEquation(eRGB), GLEquation(eAlpha));
}

bool GLBlender::Disable() {
    return m_pContext && m_pContext->Disable(GL_BLEND);
}

bool GLBlender::BlendFuncSeparate(BlendFactor eSrcRGB, BlendFactor eDstRGB, BlendFactor eSrcAlpha,
                                  BlendFactor eDstAlpha) {
    return m_pContext && m_pContext->BlendFuncSeparate(GLFactor(eSrcRGB), GLFactor(eDstRGB),
                                                       GLFactor(eSrcAlpha), GLFactor(eDstAlpha));
}

}  // namespace brushworks
