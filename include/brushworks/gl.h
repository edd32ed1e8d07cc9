// The OpenGL services that a host offers for GPU renders, and the records that cross with them.
//
// The library owns no context, texture or program: it asks for each through these interfaces. A
// call comes on the thread on which the host called GetGPUCaps or RenderGPU, with that context
// current. Enumerations of OpenGL are passed as unsigned int, so that these headers need no GL
// header.
#pragma once

#include <cstddef>
#include <cstdint>

#include "brushworks/frame.h"
#include "brushworks/unknown.h"

namespace brushworks {

class IVideoGPUEffect;

/// A texture of the host.
class IGLTexture : public IUnknown {
  public:
    /// Replaces the texels with `data` of the given layout, rows `rowSpan` bytes apart.
    virtual bool Upload(PixelFormat format, const void* data, int rowSpan) = 0;
    /// Sets minification and magnification to GL_NEAREST or GL_LINEAR.
    virtual bool SetFilter(unsigned int filter) = 0;
    /// The internal format; only compared for equality.
    virtual int GetFormat() = 0;
    /// The texture exists in its context.
    virtual bool IsValid() = 0;
};

/// A buffer object of the host.
class IGLBuffer : public IUnknown {
  public:
    /// Binds the buffer to `target`.
    virtual bool Bind(unsigned int target) = 0;
    /// Maps the buffer from byte `offset` on with the GL access enum `access`; null on failure. The
    /// mapping ends when the buffer is freed or unbound.
    virtual void* Map(int offset, unsigned int access) = 0;
    /// The buffer exists in its context.
    virtual bool IsValid() = 0;
};

/// A linked program of the host. Setters fail harmlessly on a name that the program lacks.
class IGLShader : public IUnknown {
  public:
    /// One entry that GetUniforms stores: the name, null-terminated, at its start.
    static constexpr int kUniformEntryBytes = 68;

    /// Makes the program current for a render target of this size in pixels.
    virtual bool Bind(int width, int height) = 0;
    virtual bool SetInt1(const char* name, int a) = 0;
    virtual bool SetInt2(const char* name, int a, int b) = 0;
    virtual bool SetFloat1(const char* name, float a) = 0;
    virtual bool SetFloat2(const char* name, float a, float b) = 0;
    virtual bool SetFloat3(const char* name, float a, float b, float c) = 0;
    virtual bool SetFloat4(const char* name, float a, float b, float c, float d) = 0;
    /// Nine floats, column by column.
    virtual bool SetMatf3(const char* name, float* matrix) = 0;
    /// Sixteen floats, column by column.
    virtual bool SetMatf4(const char* name, float* matrix) = 0;
    virtual bool SetTex2D(const char* name, IGLTexture* texture) = 0;
    /// Returns the number of active uniforms and, unless `buffer` is null, stores an entry for
    /// each.
    virtual int GetUniforms(void* buffer) = 0;
    /// Stores the location of a vertex attribute.
    virtual bool GetAttribLocation(const char* name, int* location) = 0;
    /// The program is linked and exists in its context.
    virtual bool IsValid() = 0;
};

/// The features of a GL context: three entry points and twenty answers.
struct ARBHelper {
    void* glDrawArraysInstancedARB;    ///< null when the driver lacks it
    void* glDrawElementsInstancedARB;  ///< likewise
    void* glGetQueryObjecti64vEXT;     ///< likewise
    bool bShaderObjects;               ///< GL_ARB_shader_objects; required
    bool bFramebufferObject;           ///< GL_EXT_framebuffer_object; required
    bool bMultitexture;                ///< GL_ARB_multitexture; required
    bool bBlendColor;                  ///< GL_EXT_blend_color; required
    bool bBlendMinmax;                 ///< GL_EXT_blend_minmax; required
    bool bBlendFuncSeparate;           ///< GL_EXT_blend_func_separate; required
    bool bBlendEquationSeparate;       ///< GL_EXT_blend_equation_separate; required
    bool bFramebufferBlit;             ///< GL_EXT_framebuffer_blit
    bool bFramebufferMultisample;      ///< GL_EXT_framebuffer_multisample
    bool bOcclusionQuery;              ///< GL_ARB_occlusion_query
    bool bTimerQuery;                  ///< GL_EXT_timer_query, and its entry point was found
    bool bPixelBufferObject;           ///< GL_ARB_pixel_buffer_object
    bool bVertexBufferObject;          ///< GL_ARB_vertex_buffer_object
    bool bVertexProgram;               ///< GL_ARB_vertex_program
    bool bATIMemInfo;                  ///< GL_ATI_meminfo
    bool bNVXGpuMemoryInfo;            ///< GL_NVX_gpu_memory_info
    bool bDrawInstanced;               ///< GL_ARB_draw_instanced, and both entry points were found
    bool bGeometryShader4;             ///< GL_EXT_geometry_shader4
    bool bUnusedFeature;               ///< always false
    bool bHalfFloatVertex;             ///< GL_ARB_half_float_vertex
};
static_assert(sizeof(ARBHelper) == 48);
static_assert(offsetof(ARBHelper, bShaderObjects) == 24 &&
              offsetof(ARBHelper, bHalfFloatVertex) == 43);

/// The host's wrapper of the current context.
class IGLContext : public IUnknown {
  public:
    /// A filled record that lives as long as the context.
    virtual ARBHelper* GetARBHelper() = 0;
    /// glGetIntegerv; `count` values are stored.
    virtual bool GetIntegerv(unsigned int name, int* values, int count) = 0;
    /// glGetFloatv; `count` values are stored.
    virtual bool GetFloatv(unsigned int name, float* values, int count) = 0;
    virtual bool Enable(unsigned int capability) = 0;
    virtual bool Disable(unsigned int capability) = 0;
    virtual bool BlendColor(float red, float green, float blue, float alpha) = 0;
    virtual bool BlendEquationSeparate(unsigned int rgb, unsigned int alpha) = 0;
    virtual bool BlendFuncSeparate(unsigned int sourceRgb, unsigned int destinationRgb,
                                   unsigned int sourceAlpha, unsigned int destinationAlpha) = 0;
    /// Called with null alone: back to the fixed pipeline.
    virtual bool UseProgram(IGLShader* shader) = 0;
    /// Called with null alone: unbinds `target`.
    virtual bool BindBuffer(unsigned int target, IGLBuffer* buffer) = 0;
};

/// One texture as it is handed about: copied freely, owning nothing.
struct TextureParams {
    IGLTexture* pTexture = nullptr;                ///< the host's texture, null when unallocated
    PixelFormat pfPixelFormat = PixelFormatBGRA8;  ///< layout of the texels
    std::int32_t nTexWidth = 0;                    ///< allocated width in texels
    std::int32_t nTexHeight = 0;                   ///< allocated height in texels
    std::int32_t nWidth = 0;                       ///< width of the region of interest
    std::int32_t nHeight = 0;                      ///< height of the region of interest
    std::int32_t nLeft = 0;                        ///< left edge of the region
    std::int32_t nTop = 0;                         ///< top edge of the region
    bool bFlipped = false;                         ///< rows run bottom-up
};
static_assert(sizeof(TextureParams) == 40);
static_assert(offsetof(TextureParams, pfPixelFormat) == 8 &&
              offsetof(TextureParams, nTexWidth) == 12 && offsetof(TextureParams, nWidth) == 20 &&
              offsetof(TextureParams, nLeft) == 28 && offsetof(TextureParams, bFlipped) == 36);

/// What IVideoGPUEffect::GetGPUCaps answers.
struct GPUCaps {
    std::int32_t nReserved;      ///< 0
    std::int32_t nGPUSupported;  ///< 1 when the effect can render with this context, else 0
    bool bGPUAllowed;            ///< licensing lets the effect render on the GPU
};
static_assert(sizeof(GPUCaps) == 12 && offsetof(GPUCaps, nGPUSupported) == 4 &&
              offsetof(GPUCaps, bGPUAllowed) == 8);

/// The host's maker of GL objects; found by asking the IVideoHost for IID_VideoHostGL.
class IVideoHostGL : public IUnknown {
  public:
    /// Allocates a texture of `width` by `height` texels and fills every field of `texture`, the
    /// region covering the whole. `data` gives the texels, rows `rowSpan` bytes apart, or is null
    /// with a span of 0. With a name the host keeps the texture under it across renders, and
    /// `*existed` says whether it was there already.
    virtual bool CreateTexture(IGLContext* context, TextureParams& texture, const char* name,
                               int width, int height, PixelFormat format, const void* data,
                               int rowSpan, bool* existed) = 0;
    /// Allocates a buffer object of `size` bytes, filled from `data` unless it is null. The last
    /// two arguments are 0.
    virtual bool CreateBuffer(IGLContext* context, IGLBuffer** buffer, const void* data, int size,
                              unsigned int usage, int reserved0, int reserved1) = 0;
    /// Compiles and links a program from the stored texts of its stages. A stage that is absent has
    /// a null text. `...Size2` and `...Check` describe a stored form and are 0 for a clear text of
    /// `...Size` bytes.
    virtual bool CreateShader(IGLContext* context, IGLShader** shader,
                              const std::uint8_t* vertexData, const std::uint8_t* fragmentData,
                              const std::uint8_t* geometryData, std::uint32_t vertexSize,
                              std::uint32_t fragmentSize, std::uint32_t geometrySize,
                              std::uint32_t vertexSize2, std::uint32_t fragmentSize2,
                              std::uint32_t geometrySize2, std::uint64_t vertexCheck,
                              std::uint64_t fragmentCheck, std::uint64_t geometryCheck) = 0;
    /// Releases a buffer; `valid` says that it was valid.
    virtual void FreeBuffer(IGLBuffer* buffer, bool valid) = 0;
    /// Releases a texture and clears its pTexture; `valid` says that it was valid.
    virtual void FreeTexture(TextureParams* texture, bool valid) = 0;
    /// Deletes a program.
    virtual void FreeShader(IGLShader* shader) = 0;
    /// Binds a framebuffer over the texture and sets the viewport to its region; null goes back to
    /// the host's own target. A sample count of 0 means no multisampling.
    virtual bool SetRenderTarget(IGLContext* context, const TextureParams* target, int samples,
                                 bool reserved, bool forReading) = 0;
    /// Resolves a multisampled target into the texture.
    virtual bool ResolveRenderTarget(IGLContext* context, TextureParams* target) = 0;
    /// Reads the region of interest into `pixels` in the texture's layout.
    virtual bool ReadTexture(IGLContext* context, TextureParams* texture, int width, int height,
                             int bytesPerRow, void* pixels) = 0;
    /// Runs the effect's GetGPUCaps on a context of the host's own.
    virtual bool TestEffect(IVideoGPUEffect* effect, GPUCaps* caps) = 0;
    /// The length of a text about the GL stack (kind 7), stored in `buffer` unless that is null.
    virtual int GetInfoString(int kind, char* buffer, int size) = 0;
};

}  // namespace brushworks
