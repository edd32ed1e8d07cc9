// What a pass on the graphics card calls: textures, programs, targets, fixed state, the quad.
#pragma once

#include <map>
#include <string>

#include "brushworks/gl.h"
#include "gpu/gl_blender.h"
#include "gpu/shader_program.h"
#include "gpu/shader_struct.h"

namespace brushworks {

/// Marks the classes that hold GL services.
class GLGuard {};

/// Works with the context and the host that SetParams was given, on the context's thread, inside a
/// GPU call. The record of features is the context's own, refreshed by each question for
/// capabilities. Nothing here asks for GL errors: the host's answers are what counts.
class GPUHelper : public ARBHelper, private GLGuard {
  public:
    using GLBlender = brushworks::GLBlender;

    GPUHelper() : ARBHelper{} {}
    ~GPUHelper() = default;
    GPUHelper(const GPUHelper&) = delete;
    GPUHelper& operator=(const GPUHelper&) = delete;

    /// Borrows both for a call and saves the host's blend state; with no context puts it back.
    void SetParams(IVideoHostGL* pHostGL, IGLContext* pContext);
    IGLContext* Context() const { return m_pContext; }
    IVideoHostGL* Host() const { return m_pHostGL; }
    GLBlender& Blender() { return m_Blender; }

    /// A texture of the host's; `pData`, rows `nRowSpan` bytes apart, may be null with a span of 0.
    bool CreateTexture(TextureParams& tex, int nWidth, int nHeight, PixelFormat pf, void* pData,
                       int nRowSpan);
    /// One that the host keeps under a name; `*pbExisted` says whether it was there already.
    bool CreateNamedTexture(TextureParams& tex, const char* szName, int nWidth, int nHeight,
                            PixelFormat pf, void* pData, int nRowSpan, bool* pbExisted);
    /// Harmless for a texture that was never made.
    bool FreeTexture(TextureParams& tex);
    bool CreateBuffer(IGLBuffer*& pBuffer, const void* pData, int nSize, unsigned int nUsage);
    /// Null unbinds the target.
    bool BindBuffer(unsigned int nTarget, IGLBuffer* pBuffer);
    bool FreeBuffer(IGLBuffer* pBuffer);

    bool CreateShader(ShaderStruct vs, ShaderStruct fs, GLShaderProgram& prog);
    bool CreateShaderG(ShaderStruct vs, ShaderStruct fs, ShaderStruct gs, GLShaderProgram& prog);
    /// Binds for the current target.
    bool BindShader(GLShaderProgram& prog);
    bool FreeShader(GLShaderProgram& prog);

    /// Null goes back to the host's own target. `b1` and `b2` are the host's.
    bool SetRenderTarget(const TextureParams* pTex, bool bMultisample, bool b1, bool b2);
    /// Lets the host resolve a multisampled target; nothing to do for others.
    bool ResolveRenderTarget(TextureParams& tex);
    bool ClearCurrentRT(float r, float g, float b, float a);

    void SetGLStates();
    /// A plane of that size in pixels, its middle at the origin, covers the target exactly.
    void ConfigProjectionMatrix(float fWidth, float fHeight);
    void ConfigModelViewMatrix();
    unsigned int ClearGLErrors() { return 0; }
    bool glDisable(unsigned int nCap);

    /// Describes up to three textures to the current program.
    bool PrepareShader(const TextureParams* p0, const TextureParams* p1, const TextureParams* p2);
    /// Draws a quad over `pRect` of the target, the whole with null. The shader's coordinates run
    /// from 0 to 1 over it whatever the rectangle; the texture is described as a whole.
    bool BuildQuad(const TextureParams& tex, bool bFlip, GPUStuff::TextureRect* pRect);
    bool BuildQuad(const TextureParams& tex0, const TextureParams& tex1, bool bFlip,
                   GPUStuff::TextureRect* pRect);
    /// The rectangle in the plane's coordinates.
    GPUStuff::TextureRect GetPolygonRect(bool bFlip, const GPUStuff::TextureRect* pRect) const;

    /// The last step of a render: writes a picture in true channel order into the host's texture,
    /// in that one's order and direction of rows. Needs the render's projection.
    bool CopyWithConvert(TextureParams* pSrc, TextureParams* pDst);

  protected:
    bool m_bStatesSet = false;

  private:
    using SetCoordinate = void (*)(float s, float t);
    bool Count(bool made, std::uint32_t& counter);
    void DrawStrip(const GPUStuff::TextureRect& rect, SetCoordinate setCoordinate) const;

    std::map<std::string, std::string> m_mapStrings;
    GLBlender m_Blender;
    bool m_bMultisampleTarget = false;
    IGLContext* m_pContext = nullptr;
    IVideoHostGL* m_pHostGL = nullptr;
    double m_dHalfWidth = 0;
    double m_dHalfHeight = 0;
    double m_dDepth = 0;
    double m_dReserved = 0;
    int m_nRTWidth = 0;
    int m_nRTHeight = 0;
    GLShaderProgram* m_pCurrentShader = nullptr;
    std::uint32_t m_nTextures = 0;
    std::uint32_t m_nShaders = 0;
    std::uint32_t m_nBuffers = 0;
};

}  // namespace brushworks
