// What all operations on textures have in common.
//
// A processor is made on the stack over the effect's helper for one call and keeps nothing. Sources
// come first and targets after; textures stay the caller's; what an operation makes for itself is
// freed before it returns, also when it fails. False means a failed check, texture or program.
#pragma once

#include <functional>

#include "gpu/gl_objects.h"

namespace brushworks::GPUProcessors {

class CGPUProcessor {
  public:
    /// Borrows the helper; with null every operation answers false.
    explicit CGPUProcessor(GPUHelper* pHelper) : m_pHelper(pHelper) {}
    virtual ~CGPUProcessor() = default;
    CGPUProcessor(const CGPUProcessor&) = delete;
    CGPUProcessor& operator=(const CGPUProcessor&) = delete;

    /// There is a valid texture with a region of some size.
    static bool CheckTexture(const TextureParams& tex);
    /// The regions agree in size and, if asked for, the textures in their format.
    static bool IsTexturesEqual(const TextureParams& a, const TextureParams& b,
                                bool bCompareFormat);

  protected:
    /// Sets a pass's uniforms; false gives the pass up.
    using SetUniforms = std::function<bool(GLShaderProgram&)>;

    /// The one pass that most operations are: nearest texels, no blending, the whole of `dst`.
    bool Draw(const ShaderStruct& fragment, const TextureParams& src, const TextureParams& dst,
              const SetUniforms& setUniforms);
    /// The same from two sources.
    bool Draw(const ShaderStruct& fragment, const TextureParams& src0, const TextureParams& src1,
              const TextureParams& dst, const SetUniforms& setUniforms);
    /// The same with a program that is made already, for operations of several passes.
    bool DrawWith(GLShaderProgram& program, const TextureParams& src, const TextureParams& dst,
                  const SetUniforms& setUniforms);

    GPUHelper* const m_pHelper;
};

}  // namespace brushworks::GPUProcessors
