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

// A caller on a thread without the context gets an answer, where libepoxy would end the process.
template <class Call>
bool GLContext::whenCurrent(Call call) {
    if (!m_context.isCurrent()) return false;
    call();
    return true;
}

bool GLContext::GetIntegerv(unsigned int name, int* values, int count) {
    return whenCurrent([=] {
        std::array<GLint, kMostValues> all{};
        glGetIntegerv(name, all.data());
        std::copy_n(all.data(), std::clamp(count, 0, int(kMostValues)), values);
    });
}

bool GLContext::GetFloatv(unsigned int name, float* values, int count) {
    return whenCurrent([=] {
        std::array<GLfloat, kMostValues> all{};
        glGetFloatv(name, all.data());
        std::copy_n(all.data(), std::clamp(count, 0, int(kMostValues)), values);
    });
}

bool GLContext::Enable(unsigned int capability) {
    return whenCurrent([=] { glEnable(capability); });
}

bool GLContext::Disable(unsigned int capability) {
    return whenCurrent([=] { glDisable(capability); });
}

bool GLContext::BlendColor(float red, float green, float blue, float alpha) {
    return whenCurrent([=] { glBlendColor(red, green, blue, alpha); });
}

bool GLContext::BlendEquationSeparate(unsigned int rgb, unsigned int alpha) {
    return whenCurrent([=] { glBlendEquationSeparate(rgb, alpha); });
}

bool GLContext::BlendFuncSeparate(unsigned int sourceRgb, unsigned int destinationRgb,
                                  unsigned int sourceAlpha, unsigned int destinationAlpha) {
    return whenCurrent(
        [=] { glBlendFuncSeparate(sourceRgb, destinationRgb, sourceAlpha, destinationAlpha); });
}

bool GLContext::UseProgram(IGLShader* shader) {
    if (shader != nullptr) return shader->Bind(1, 1);
    return whenCurrent([] { glUseProgram(0); });
}

bool GLContext::BindBuffer(unsigned int target, IGLBuffer* buffer) {
    if (buffer != nullptr) return buffer->Bind(target);
    return whenCurrent([=] { unbindBuffer(target); });
}

}  // namespace brushworks::host::gl
