// Listens through GL_KHR_debug where the driver has it, and to glGetError everywhere.
#include "host/gl/debug_log.h"

#include <epoxy/gl.h>

#include <cstdio>

namespace brushworks::host::gl {

struct DebugLog::Callback {
    static void APIENTRY receive(GLenum source, GLenum type, GLuint /*id*/, GLenum severity,
                                 GLsizei length, const GLchar* message, const void* user) {
        // The host keeps the compiler's words by itself; and slow is not wrong.
        if (source == GL_DEBUG_SOURCE_SHADER_COMPILER || type == GL_DEBUG_TYPE_PERFORMANCE) return;
        const bool serious = type == GL_DEBUG_TYPE_ERROR || severity == GL_DEBUG_SEVERITY_HIGH ||
                             severity == GL_DEBUG_SEVERITY_MEDIUM;
        auto* log = static_cast<DebugLog*>(const_cast<void*>(user));
        if (!serious || log->m_bMuted) return;
        log->add("driver: " +
                 (length < 0 ? std::string(message) : std::string(message, std::size_t(length))));
    }
};

DebugLog::DebugLog(bool enabled) : m_bEnabled(enabled) {
    GLint flags = 0;
    glGetIntegerv(GL_CONTEXT_FLAGS, &flags);
    m_bListening = enabled && (flags & GL_CONTEXT_FLAG_DEBUG_BIT) != 0 &&
                   epoxy_has_gl_extension("GL_KHR_debug");
    if (!m_bListening) return;
    glEnable(GL_DEBUG_OUTPUT);
    // So that a breakpoint in add() stands in the call that is wrong.
    glEnable(GL_DEBUG_OUTPUT_SYNCHRONOUS);
    glDebugMessageCallback(Callback::receive, this);
}

void DebugLog::stopListening() {
    if (m_bListening) glDebugMessageCallback(nullptr, nullptr);
    m_bListening = false;
}

void DebugLog::add(std::string problem) {
    if (m_bEnabled) m_problems.push_back(std::move(problem));
}

void DebugLog::check(const char* operation) {
    if (!m_bEnabled) return;
    for (GLenum error = glGetError(); error != GL_NO_ERROR; error = glGetError()) {
        if (m_bListening) continue;
        char text[64];
        std::snprintf(text, sizeof text, "GL error 0x%04x after %s", error, operation);
        add(text);
    }
}

bool drainErrors() {
    bool any = false;
    // A lost context may answer with errors for ever.
    for (int i = 0; i < 16 && glGetError() != GL_NO_ERROR; ++i) any = true;
    return any;
}

}  // namespace brushworks::host::gl
