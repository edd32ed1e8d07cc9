// The vocabulary of coordinates that a shader gets for each of its textures. All conversions have
// the form v * Scale + Shift, axis by axis.
#include <string>

#include "gpu/shader_program.h"

namespace brushworks {
namespace {

/// Where one axis has a single texel there is nothing to scale.
constexpr float kDegenerate = 1.5f;

/// One axis of a piece of a texture, seen from a render target.
struct Axis {
    float w;  ///< texels of the piece
    float m;  ///< from the first centre to the last
    float c;  ///< the first centre, in allocated texels
    float S;  ///< allocated texels
    float R;  ///< pixels of the render target

    Axis(int size, int origin, int allocated, int target, float near, float far)
        : w(static_cast<float>(size) * (far - near)),
          m(w - 1),
          c(static_cast<float>(origin) + static_cast<float>(size) * near + 0.5f),
          S(static_cast<float>(allocated)),
          R(static_cast<float>(target)) {}

    // A piece of one texel in a larger texture divides by 0 in some of these: the tests look at the
    // allocated size, as shaders have come to expect.
    bool HasSpan() const { return S > kDegenerate; }
    bool TargetHasSpan() const { return R > kDegenerate; }
    float q() const { return TargetHasSpan() ? m / (R - 1) : 0.0f; }

    float Scale() const { return m / S; }
    float Shift() const { return c / S; }
    float ScaleTEXi() const { return HasSpan() ? 1 / S : 0.0f; }
    float ShiftTEXi() const { return HasSpan() ? c / S : c / S + 0.5f * m / S; }
    float RT2TEX_Scale() const { return TargetHasSpan() ? m * R / (R - 1) / w : 0.0f; }
    float RT2TEX_Shift() const { return TargetHasSpan() ? 0.5f / w * (1 - q()) : 0.5f; }
    float RT2TEXi_Scale() const { return TargetHasSpan() ? m * R / (R - 1) : 0.0f; }
    float RT2TEXi_Shift() const { return TargetHasSpan() ? -0.5f * q() : 0.0f; }
    float TEX2NORM_Scale() const { return HasSpan() ? w / m : 0.0f; }
    float TEX2NORM_Shift() const { return HasSpan() ? -0.5f / m : 0.5f; }
    float TEX2TEXi_Scale() const { return w; }
    float TEX2TEXi_Shift() const { return -0.5f; }
    float TEXi2NORM_Scale() const { return HasSpan() ? 1 / m : 0.0f; }
    float TEXi2NORM_Shift() const { return HasSpan() ? 0.0f : 0.5f; }
    float NORM2TEXi_Scale() const { return m; }
    float texelSize() const { return 1 / m; }
};

struct Entry {
    const char* name;
    float (Axis::*value)() const;
};

/// In the order of assignment, after the sampler.
constexpr Entry kEntries[] = {
    {"vScale", &Axis::Scale},
    {"vShift", &Axis::Shift},
    {"vScaleTEXi", &Axis::ScaleTEXi},
    {"vShiftTEXi", &Axis::ShiftTEXi},
    {"vRT2TEX_Scale", &Axis::RT2TEX_Scale},
    {"vRT2TEX_Shift", &Axis::RT2TEX_Shift},
    {"vRT2TEXi_Scale", &Axis::RT2TEXi_Scale},
    {"vRT2TEXi_Shift", &Axis::RT2TEXi_Shift},
    {"vTEX2NORM_Scale", &Axis::TEX2NORM_Scale},
    {"vTEX2NORM_Shift", &Axis::TEX2NORM_Shift},
    {"vTEX2TEXi_Scale", &Axis::TEX2TEXi_Scale},
    {"vTEX2TEXi_Shift", &Axis::TEX2TEXi_Shift},
    {"vTEXi2NORM_Scale", &Axis::TEXi2NORM_Scale},
    {"vTEXi2NORM_Shift", &Axis::TEXi2NORM_Shift},
    {"vNORM2TEXi_Scale", &Axis::NORM2TEXi_Scale},
    {"texelSize", &Axis::texelSize},
    {"roiLeftTop", &Axis::Shift},
    {"roiWH", &Axis::Scale},
};

}  // namespace

void GLShaderProgram::SetTexInf(unsigned int nUnit, const TextureParams& tex,
                                GPUStuff::TextureRect rc) {
    if (!m_pShader || !m_bTrackUniforms) return;
    if (nUnit >= std::size(m_abTexInfoSet) || m_abTexInfoSet[nUnit]) return;
    m_abTexInfoSet[nUnit] = true;

    const bool before = m_bInternalSet;
    m_bInternalSet = true;
    const Axis x(tex.nWidth, tex.nLeft, tex.nTexWidth, m_nRTWidth, rc.left, rc.right);
    const Axis y(tex.nHeight, tex.nTop, tex.nTexHeight, m_nRTHeight, rc.top, rc.bottom);
    const std::string unit = "Texture" + std::to_string(nUnit);
    SetTex2D((unit + "_texture").c_str(), tex);
    for (const Entry& entry : kEntries)
        SetFloat2((unit + '.' + entry.name).c_str(), (x.*entry.value)(), (y.*entry.value)());
    m_bInternalSet = before;
}

}  // namespace brushworks
