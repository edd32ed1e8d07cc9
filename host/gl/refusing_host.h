// A maker of GL objects that refuses one request, for tests of what happens then.
#pragma once

#include "host/gl/counted.h"
#include "host/gl/host_gl.h"

namespace brushworks::host::gl {

/// Passes everything on to another host but the request of a number, which it answers with false.
/// Requests are CreateTexture, CreateBuffer, CreateShader and SetRenderTarget with a texture.
class RefusingHostGL final : public Counted<IVideoHostGL, &IID_VideoHostGL> {
  public:
    /// Requests count from 0. Use it through a Ref, and not longer than the other host.
    static Ref<RefusingHostGL> create(IVideoHostGL& other, int refusedRequest) {
        return Ref<RefusingHostGL>::adopt(new RefusingHostGL(other, refusedRequest));
    }

    /// Whether it came to the refusal: when not, there are no more requests to refuse.
    bool refused() const { return m_nRequests > m_nRefused; }

    bool CreateTexture(IGLContext* context, TextureParams& texture, const char* name, int width,
                       int height, PixelFormat format, const void* data, int rowSpan,
                       bool* existed) override {
        texture.pTexture = nullptr;
        return pass() && m_other.CreateTexture(context, texture, name, width, height, format, data,
                                               rowSpan, existed);
    }
    bool CreateBuffer(IGLContext* context, IGLBuffer** buffer, const void* data, int size,
                      unsigned int usage, int reserved0, int reserved1) override {
        *buffer = nullptr;
        return pass() &&
               m_other.CreateBuffer(context, buffer, data, size, usage, reserved0, reserved1);
    }
    bool CreateShader(IGLContext* context, IGLShader** shader, const std::uint8_t* vertexData,
                      const std::uint8_t* fragmentData, const std::uint8_t* geometryData,
                      std::uint32_t vertexSize, std::uint32_t fragmentSize,
                      std::uint32_t geometrySize, std::uint32_t vertexSize2,
                      std::uint32_t fragmentSize2, std::uint32_t geometrySize2,
                      std::uint64_t vertexCheck, std::uint64_t fragmentCheck,
                      std::uint64_t geometryCheck) override {
        *shader = nullptr;
        return pass() && m_other.CreateShader(context, shader, vertexData, fragmentData,
                                              geometryData, vertexSize, fragmentSize, geometrySize,
                                              vertexSize2, fragmentSize2, geometrySize2,
                                              vertexCheck, fragmentCheck, geometryCheck);
    }
    bool SetRenderTarget(IGLContext* context, const TextureParams* target, int samples,
                         bool reserved, bool forReading) override {
        return (target == nullptr || pass()) &&
               m_other.SetRenderTarget(context, target, samples, reserved, forReading);
    }

    void FreeBuffer(IGLBuffer* buffer, bool valid) override { m_other.FreeBuffer(buffer, valid); }
    void FreeTexture(TextureParams* texture, bool valid) override {
        m_other.FreeTexture(texture, valid);
    }
    void FreeShader(IGLShader* shader) override { m_other.FreeShader(shader); }
    bool ResolveRenderTarget(IGLContext* context, TextureParams* target) override {
        return m_other.ResolveRenderTarget(context, target);
    }
    bool ReadTexture(IGLContext* context, TextureParams* texture, int width, int height,
                     int bytesPerRow, void* pixels) override {
        return m_other.ReadTexture(context, texture, width, height, bytesPerRow, pixels);
    }
    bool TestEffect(IVideoGPUEffect* effect, GPUCaps* caps) override {
        return m_other.TestEffect(effect, caps);
    }
    int GetInfoString(int kind, char* buffer, int size) override {
        return m_other.GetInfoString(kind, buffer, size);
    }

  private:
    RefusingHostGL(IVideoHostGL& other, int refusedRequest)
        : m_other(other), m_nRefused(refusedRequest) {}
    ~RefusingHostGL() override = default;
    bool pass() { return m_nRequests++ != m_nRefused; }

    IVideoHostGL& m_other;
    int m_nRefused;
    int m_nRequests = 0;
};

}  // namespace brushworks::host::gl
