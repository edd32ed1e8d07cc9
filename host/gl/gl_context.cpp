// Passes the library's calls on to OpenGL, and asks OpenGL what it can do.
#include "host/gl/gl_context.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <array>

#include "host/gl/buffer.h"
#include "host/gl/features.h"

namespace brushworks::host::gl {
namespace {

// Room for the longest answers, whatever part of them a caller wants.
constexpr std::size_t kMostValues = 1024;

}  // namespace

GLContext::GLContext(const ContextOptions& options)
    : m_context(options),
      m_features(askFeatures(reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS)))) {}

bool GLContext::GetIntegerv(unsigned int name, int* values, int count) {
    std::array<GLint, kMostValues> all{};
    glGetIntegerv(name, all.data());
    std::copy_n(all.data(), std::clamp(count, 0, int(kMostValues)), values);
    return true;
}

bool GLContext::GetFloatv(unsigned int name, float* values, int count) {
    std::array<GLfloat, kMostValues> all{};
    glGetFloatv(name, all.data());
    std::copy_n(all.data(), std::clamp(count, 0, int(kMostValues)), values);
    return true;
}

bool GLContext::Enable(unsigned int capability) {
    glEnable(capability);
    return true;
}

bool GLContext::Disable(unsigned int capability) {
    glDisable(capability);
    return true;
}

bool GLContext::BlendColor(float red, float green, float blue, float alpha) {
    glBlendColor(red, green, blue, alpha);
    return true;
}

bool GLContext::BlendEquationSeparate(unsigned int rgb, unsigned int alpha) {
    glBlendEquationSeparate(rgb, alpha);
    return true;
}

bool GLContext::BlendFuncSeparate(unsigned int sourceRgb, unsigned int destinationRgb,
                                  unsigned int sourceAlpha, unsigned int destinationAlpha) {
    glBlendFuncSeparate(sourceRgb, destinationRgb, sourceAlpha, destinationAlpha);
    return true;
}

bool GLContext::UseProgram(IGLShader* shader) {
    if (shader != nullptr) return shader->Bind(1, 1);
    glUseProgram(0);
    return true;
}

bool GLContext::BindBuffer(unsigned int target, IGLBuffer* buffer) {
    if (buffer != nullptr) return buffer->Bind(target);
    unbindBuffer(target);
    return true;
}

}  // namespace brushworks::host::gl
