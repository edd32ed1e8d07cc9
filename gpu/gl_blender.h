// The host's blend state, saved and put back around a GPU call, and blending for passes.
#pragma once

#include "brushworks/gl.h"

namespace brushworks {

/// Holds the context between Initialize and Terminate.
class GLBlender {
  public:
    enum BlendEquation { kAdd, kSubtract, kMin, kMax };
    enum BlendFactor {
        kZero,
        kOne,
        kSrcColor,
        kOneMinusSrcColor,
        kDstColor,
        kOneMinusDstColor,
        kSrcAlpha,
        kOneMinusSrcAlpha,
        kDstAlpha,
        kOneMinusDstAlpha,
        kConstantColor,
        kOneMinusConstantColor,
        kConstantAlpha,
        kOneMinusConstantAlpha
    };

    /// Saves the blend colour, equations and functions of `pContext`; null saves nothing. True.
    bool Initialize(IGLContext* pContext);
    /// Puts back what was saved and disables GL_BLEND, which is not among it. True.
    bool Terminate();

    bool Enable(BlendEquation eRGB, BlendEquation eAlpha);
    bool Disable();
    bool BlendFuncSeparate(BlendFactor eSrcRGB, BlendFactor eDstRGB, BlendFactor eSrcAlpha,
                           BlendFactor eDstAlpha);

    bool HasContext() const { return m_pContext != nullptr; }

  private:
    IGLContext* m_pContext = nullptr;
    float m_afBlendColor[4] = {};
    std::uint32_t m_nEquationRGB = 0;
    std::uint32_t m_nEquationAlpha = 0;
    std::uint32_t m_nSrcRGB = 0;
    std::uint32_t m_nSrcAlpha = 0;
    std::uint32_t m_nDstRGB = 0;
    std::uint32_t m_nDstAlpha = 0;
};

}  // namespace brushworks
