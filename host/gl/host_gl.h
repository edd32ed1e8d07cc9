// The maker of GL objects that the host lends to the library.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "brushworks/gl.h"
#include "brushworks/guid.h"
#include "host/gl/buffer.h"
#include "host/gl/debug_log.h"
#include "host/gl/gl_context.h"
#include "host/gl/handed_out.h"
#include "host/gl/program_cache.h"
#include "host/gl/render_targets.h"
#include "host/gl/texture.h"
#include "host/ref.h"

namespace brushworks::host::gl {

struct HostGLOptions {
    bool debug = false;    ///< collect problems, and print why programs do not compile
    bool garbage = false;  ///< fresh textures and multisampled targets start as nonsense
    std::size_t poolBytes = std::size_t(512) << 20;  ///< bound of idle textures; likewise buffers
};

/// How often something was made, and how often an idle one served.
struct Counters {
    int texturesMade = 0;
    int texturesReused = 0;
    int buffersMade = 0;
    int buffersReused = 0;
    int programsCompiled = 0;
    int programsReused = 0;
};

/// Makes textures, buffers, programs and render targets on one context, and keeps what was given
/// back for the next render. [the context's thread, context current]
class HostGL final : public Counted<IVideoHostGL, &IID_VideoHostGL> {
  public:
    static Ref<HostGL> create(Ref<GLContext> context, const HostGLOptions& options = {});

    bool CreateTexture(IGLContext* context, TextureParams& texture, const char* name, int width,
                       int height, PixelFormat format, const void* data, int rowSpan,
                       bool* existed) override;
    bool CreateBuffer(IGLContext* context, IGLBuffer** buffer, const void* data, int size,
                      unsigned int usage, int reserved0, int reserved1) override;
    bool CreateShader(IGLContext* context, IGLShader** shader, const std::uint8_t* vertexData,
                      const std::uint8_t* fragmentData, const std::uint8_t* geometryData,
                      std::uint32_t vertexSize, std::uint32_t fragmentSize,
                      std::uint32_t geometrySize, std::uint32_t vertexSize2,
                      std::uint32_t fragmentSize2, std::uint32_t geometrySize2,
                      std::uint64_t vertexCheck, std::uint64_t fragmentCheck,
                      std::uint64_t geometryCheck) override;
    void FreeBuffer(IGLBuffer* buffer, bool valid) override;
    void FreeTexture(TextureParams* texture, bool valid) override;
    void FreeShader(IGLShader* shader) override;
    bool SetRenderTarget(IGLContext* context, const TextureParams* target, int samples,
                         bool reserved, bool forReading) override;
    bool ResolveRenderTarget(IGLContext* context, TextureParams* target) override;
    bool ReadTexture(IGLContext* context, TextureParams* texture, int width, int height,
                     int bytesPerRow, void* pixels) override;
    bool TestEffect(IVideoGPUEffect* effect, GPUCaps* caps) override;
    int GetInfoString(int kind, char* buffer, int size) override;

    GLContext& context() { return *m_pContext; }
    DebugLog& log() { return m_log; }
    const Counters& counters() const { return m_counters; }
    /// The driver's words on the last program that failed, with its numbered lines.
    const std::string& lastShaderError() const { return m_programs.lastError(); }
    /// The texture behind a record; null for one that this host did not make, or freed.
    Texture* find(const TextureParams& texture) const { return m_textures.find(texture.pTexture); }

    /// A mark in the sequence of what is made.
    std::uint64_t mark() const { return m_nSerial; }
    /// What was made since the mark and is not freed.
    std::vector<std::string> aliveSince(std::uint64_t mark) const;
    /// Whether drawing goes to a texture, and not to the host's own target.
    bool targetsTexture() const { return m_targets.current() != nullptr; }

  private:
    HostGL(Ref<GLContext> context, const HostGLOptions& options);
    ~HostGL() override;

    bool usable(const char* operation);
    Ref<Texture> makeTexture(const TextureKey& key);
    Ref<Texture> namedTexture(const std::string& name, const TextureKey& key, bool& existed);
    void retire(Texture& texture);
    void dropLastReference(IUnknown& freed, const char* kind);

    Ref<GLContext> m_pContext;
    HostGLOptions m_options;
    DebugLog m_log;
    Counters m_counters;
    std::uint64_t m_nSerial = 0;
    RenderTargets m_targets;
    TexturePool m_texturePool;
    BufferPool m_bufferPool;
    ProgramCache m_programs;
    std::map<std::string, Ref<Texture>> m_named;
    HandedOut<Texture> m_textures;
    HandedOut<Buffer> m_buffers;
    HandedOut<Program> m_shaders;
};

}  // namespace brushworks::host::gl
