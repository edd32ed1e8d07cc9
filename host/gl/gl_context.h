// The context as the library sees it.
#pragma once

#include "brushworks/gl.h"
#include "host/gl/context.h"
#include "host/gl/counted.h"

namespace brushworks::host::gl {

/// A context with the answers about its features. Operations fail harmlessly on a thread where it
/// is not current.
class GLContext final : public Counted<IGLContext> {
  public:
    /// Throws Error.
    explicit GLContext(const ContextOptions& options);

    ARBHelper* GetARBHelper() override { return &m_features; }
    bool GetIntegerv(unsigned int name, int* values, int count) override;
    bool GetFloatv(unsigned int name, float* values, int count) override;
    bool Enable(unsigned int capability) override;
    bool Disable(unsigned int capability) override;
    bool BlendColor(float red, float green, float blue, float alpha) override;
    bool BlendEquationSeparate(unsigned int rgb, unsigned int alpha) override;
    bool BlendFuncSeparate(unsigned int sourceRgb, unsigned int destinationRgb,
                           unsigned int sourceAlpha, unsigned int destinationAlpha) override;
    bool UseProgram(IGLShader* shader) override;
    bool BindBuffer(unsigned int target, IGLBuffer* buffer) override;

    Context& context() { return m_context; }

  private:
    ~GLContext() override = default;

    template <class Call>
    bool whenCurrent(Call call);

    Context m_context;
    ARBHelper m_features;
};

}  // namespace brushworks::host::gl
