// A program of the host as passes use it: uniforms by name, and the coordinates of textures.
#pragma once

#include <string>
#include <vector>

#include "brushworks/gl.h"

namespace brushworks {

namespace GPUStuff {

/// A rectangle in fractions of a texture's region of interest.
struct TextureRect {
    float left, top, right, bottom;
};

constexpr TextureRect kWhole = {0, 0, 1, 1};

}  // namespace GPUStuff

/// Empty when made, ready after Init, bound after Bind. It lives for a pass or a render, on the
/// stack, and frees the host's program when it goes.
class GLShaderProgram {
  public:
    /// With `bTrackUniforms` the program's own list of uniforms is kept: a pass may set one that
    /// the driver optimised away, which sends nothing, and textures are described to the shader.
    explicit GLShaderProgram(bool bTrackUniforms) : m_bTrackUniforms(bTrackUniforms) {}
    ~GLShaderProgram() { Free(); }
    GLShaderProgram(const GLShaderProgram&) = delete;
    GLShaderProgram& operator=(const GLShaderProgram&) = delete;

    /// Takes over `pShader`; a null or invalid one leaves the program empty.
    void Init(IVideoHostGL* pHostGL, IGLContext* pContext, IGLShader* pShader);
    void Free();
    /// The host's program, or null.
    IGLShader* Shader() const { return m_pShader; }

    /// Makes the program current for a target of that size, tells it the size, and forgets which
    /// uniforms and textures were set.
    bool Bind(int nWidth, int nHeight);

    // Each of these returns false, and sends nothing, for a name that the program lacks.
    bool SetInt1(const char* szName, int a);
    bool SetInt2(const char* szName, int a, int b);
    bool SetFloat1(const char* szName, float a);
    bool SetFloat2(const char* szName, float a, float b);
    bool SetFloat3(const char* szName, float a, float b, float c);
    bool SetFloat4(const char* szName, float a, float b, float c, float d);
    /// Nine floats, column by column, or row by row with `bTranspose`; sixteen likewise.
    bool SetMatf3(const char* szName, bool bTranspose, float* pMatrix);
    bool SetMatf4(const char* szName, bool bTranspose, float* pMatrix);
    bool SetTex2D(const char* szName, const TextureParams& tex);
    /// Notes the uniform as set without sending anything.
    bool CheckUniform(const char* szName);

    /// Describes the piece `rc` of a texture's region to the shader as TextureN, once for each unit
    /// of 0 to 7 after a Bind. The spaces that the uniforms lead between:
    ///
    ///   RT    the render target, edge coordinates: 0 and 1 are its outer edges
    ///   TEX   the piece, edge coordinates
    ///   NORM  the piece, centre coordinates: 0 and 1 are the centres of its outer texels
    ///   TEXi  index of a texel in the piece
    ///   GL    what texture2D takes
    ///
    /// A centre of a target's pixel leads to a centre of a texel at both ends, whatever the sizes.
    void SetTexInf(unsigned int nUnit, const TextureParams& tex, GPUStuff::TextureRect rc);
    /// The same for a whole region as part of drawing a quad, unless the program wants none.
    void DescribeTexture(unsigned int nUnit, const TextureParams& tex);

  private:
    bool Knows(const char* szName);
    void ReadUniforms();
    void AssignTargetUniforms();

    IGLContext* m_pContext = nullptr;
    IVideoHostGL* m_pHostGL = nullptr;
    IGLShader* m_pShader = nullptr;
    bool m_bTrackUniforms;
    bool m_bInternalSet = false;
    bool m_bReserved = false;
    bool m_bNoTextureInfo = false;
    int m_nRTWidth = 1;
    int m_nRTHeight = 1;
    std::size_t m_nUniforms = 0;
    std::vector<std::string> m_vUniformNames;
    std::vector<unsigned char> m_vUniformSet;
    bool m_abTexInfoSet[8] = {};
};

}  // namespace brushworks
