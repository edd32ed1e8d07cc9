// Fixed state, the projection in which a quad covers the target, the quad, and the closing copy.
#include <utility>

#include "gpu/channel_order.h"
#include "gpu/gl_api.h"
#include "gpu/gpu_helper.h"

namespace brushworks {
namespace {

const GLApi& GL() {
    return *GLApi::Find();  // the bracket around GPU calls has looked
}

// Hosts know these two texts by their bytes, so they stand here as they are and not in files.
constexpr char kCopyVertex[] =
    "varying vec2 texCoord;uniform vec2 texCoordScale0;uniform vec2 texCoordShift0;void main() "
    "{\tgl_Position = gl_ModelViewProjectionMatrix * gl_Vertex;\ttexCoord\t= texCoordShift0 + "
    "gl_MultiTexCoord0.xy * texCoordScale0;}";
constexpr char kCopyFragment[] =
    "#define SWAP_CHANNELS_WTO(swapFlag, src, dst) if (swapFlag==1) dst = src.grab; else dst = src "
    "\nuniform sampler2D Tex;varying vec2 texCoord;uniform int SwapChannelsDst;void main() "
    "{\tSWAP_CHANNELS_WTO(SwapChannelsDst, texture2D(Tex, texCoord.xy), gl_FragColor);}";
static_assert(sizeof(kCopyVertex) - 1 == 215 && sizeof(kCopyFragment) - 1 == 260);

template <std::uint32_t N>
ShaderStruct ClearText(const char (&text)[N]) {
    return {reinterpret_cast<const std::uint8_t*>(text), N - 1, 0, 0};
}

float Fraction(int part, int whole) {
    return static_cast<float>(part) / static_cast<float>(whole);
}

}  // namespace

bool GPUHelper::ClearCurrentRT(float r, float g, float b, float a) {
    GL().glClearColor(r, g, b, a);
    GL().glClear(GL_COLOR_BUFFER_BIT);
    return true;
}

void GPUHelper::SetGLStates() {
    GL().glClearDepth(0);
    GL().glDepthFunc(GL_GREATER);
    m_pContext->Enable(GL_DEPTH_TEST);
    m_pContext->Disable(GL_ALPHA_TEST);
    m_Blender.Disable();
    m_pContext->Disable(GL_LIGHTING);
    m_pContext->Disable(GL_TEXTURE_2D);
    GL().glColor3f(1, 1, 1);
    m_bStatesSet = true;
}

void GPUHelper::ConfigProjectionMatrix(float fWidth, float fHeight) {
    constexpr double kNear = 2, kFar = 12;
    m_dDepth = m_dReserved = 0;
    m_dHalfWidth = fWidth / 2.0;
    m_dHalfHeight = fHeight / 2.0;
    GL().glMatrixMode(GL_PROJECTION);
    GL().glLoadIdentity();
    GL().glOrtho(-m_dHalfWidth, m_dHalfWidth, -m_dHalfHeight, m_dHalfHeight, kNear, kFar);
}

void GPUHelper::ConfigModelViewMatrix() {
    constexpr double kEyeDistance = 5;  // on the z axis, looking at the origin, up along y
    GL().glMatrixMode(GL_MODELVIEW);
    GL().glLoadIdentity();
    GL().glTranslated(0, 0, -kEyeDistance);
}

GPUStuff::TextureRect GPUHelper::GetPolygonRect(bool bFlip,
                                                const GPUStuff::TextureRect* pRect) const {
    const GPUStuff::TextureRect rect = pRect ? *pRect : GPUStuff::kWhole;
    auto x = [&](float v) { return static_cast<float>(2 * v * m_dHalfWidth - m_dHalfWidth); };
    auto y = [&](float v) { return static_cast<float>(2 * v * m_dHalfHeight - m_dHalfHeight); };
    GPUStuff::TextureRect polygon = {x(rect.left), y(rect.top), x(rect.right), y(rect.bottom)};
    if (bFlip) std::swap(polygon.top, polygon.bottom);
    return polygon;
}

void GPUHelper::DrawStrip(const GPUStuff::TextureRect& rect, SetCoordinate setCoordinate) const {
    constexpr float kAboveCleared = 0.00001f;
    const float z = static_cast<float>(m_dDepth) - kAboveCleared;
    auto corner = [&](float s, float t, float x, float y) {
        setCoordinate(s, t);
        GL().glVertex3f(x, y, z);
    };
    GL().glBegin(GL_TRIANGLE_STRIP);
    corner(0, 0, rect.left, rect.top);
    corner(0, 1, rect.left, rect.bottom);
    corner(1, 0, rect.right, rect.top);
    corner(1, 1, rect.right, rect.bottom);
    GL().glEnd();
}

bool GPUHelper::PrepareShader(const TextureParams* p0, const TextureParams* p1,
                              const TextureParams* p2) {
    const TextureParams* const textures[] = {p0, p1, p2};
    for (unsigned int unit = 0; unit < 3; ++unit)
        if (m_pCurrentShader && textures[unit])
            m_pCurrentShader->DescribeTexture(unit, *textures[unit]);
    return true;
}

bool GPUHelper::BuildQuad(const TextureParams& tex, bool bFlip, GPUStuff::TextureRect* pRect) {
    PrepareShader(&tex, nullptr, nullptr);
    DrawStrip(GetPolygonRect(bFlip, pRect), [](float s, float t) { GL().glTexCoord2f(s, t); });
    return true;
}

bool GPUHelper::BuildQuad(const TextureParams& tex0, const TextureParams& tex1, bool bFlip,
                          GPUStuff::TextureRect* pRect) {
    PrepareShader(&tex0, &tex1, nullptr);
    DrawStrip(GetPolygonRect(bFlip, pRect),
              [](float s, float t) { GL().glMultiTexCoord2fARB(GL_TEXTURE0, s, t); });
    return true;
}

bool GPUHelper::CopyWithConvert(TextureParams* pSrc, TextureParams* pDst) {
    GLShaderProgram program(/*bTrackUniforms=*/false);
    if (!CreateShader(ClearText(kCopyVertex), ClearText(kCopyFragment), program)) return false;
    bool copied = SetRenderTarget(pDst, false, false, false);
    if (copied) {
        BindShader(program);
        program.SetInt1("SwapChannelsDst", SwapFlag(pDst->pfPixelFormat));
        program.SetTex2D("Tex", *pSrc);
        program.SetFloat2("texCoordScale0", Fraction(pSrc->nWidth, pSrc->nTexWidth),
                          Fraction(pSrc->nHeight, pSrc->nTexHeight));
        program.SetFloat2("texCoordShift0", Fraction(pSrc->nLeft, pSrc->nTexWidth),
                          Fraction(pSrc->nTop, pSrc->nTexHeight));
        BuildQuad(*pSrc, pSrc->bFlipped != pDst->bFlipped, nullptr);
    }
    GL().glUseProgramObjectARB(0);
    copied = SetRenderTarget(nullptr, false, false, false) && copied;
    FreeShader(program);
    return copied;
}

}  // namespace brushworks
