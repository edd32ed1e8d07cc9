// GL objects that go back to the host at the end of the scope that made them.
#pragma once

#include "gpu/gpu_helper.h"

namespace brushworks {

/// A texture for one render; empty until it is made.
class ScratchTexture : public TextureParams {
  public:
    explicit ScratchTexture(GPUHelper& helper) : m_helper(helper) {}
    ~ScratchTexture() { m_helper.FreeTexture(*this); }
    ScratchTexture(const ScratchTexture&) = delete;
    ScratchTexture& operator=(const ScratchTexture&) = delete;

    bool Make(int width, int height, PixelFormat format) {
        return m_helper.CreateTexture(*this, width, height, format, nullptr, 0);
    }
    /// One as large as the region of `like`.
    bool Make(const TextureParams& like, PixelFormat format) {
        return Make(like.nWidth, like.nHeight, format);
    }

  private:
    GPUHelper& m_helper;
};

/// A tracked program for one pass or render; empty until it is made.
class ScratchProgram : public GLShaderProgram {
  public:
    explicit ScratchProgram(GPUHelper& helper) : GLShaderProgram(true), m_helper(helper) {}
    ~ScratchProgram() { m_helper.FreeShader(*this); }

    bool Make(const ShaderStruct& vertex, const ShaderStruct& fragment) {
        return m_helper.CreateShader(vertex, fragment, *this);
    }
    bool Make(const ShaderStruct& vertex, const ShaderStruct& fragment,
              const ShaderStruct& geometry) {
        return m_helper.CreateShaderG(vertex, fragment, geometry, *this);
    }

  private:
    GPUHelper& m_helper;
};

/// A buffer for one pass; empty until it is made.
class ScratchBuffer {
  public:
    explicit ScratchBuffer(GPUHelper& helper) : m_helper(helper) {}
    ~ScratchBuffer() { m_helper.FreeBuffer(m_pBuffer); }
    ScratchBuffer(const ScratchBuffer&) = delete;
    ScratchBuffer& operator=(const ScratchBuffer&) = delete;

    bool Make(int nSize, unsigned int nUsage) {
        return m_helper.CreateBuffer(m_pBuffer, nullptr, nSize, nUsage);
    }
    IGLBuffer* get() const { return m_pBuffer; }

  private:
    GPUHelper& m_helper;
    IGLBuffer* m_pBuffer = nullptr;
};

}  // namespace brushworks
