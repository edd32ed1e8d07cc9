// Buffers, whose mappings end by themselves.
#include "host/gl/buffer.h"

#include <epoxy/gl.h>

#include <utility>

namespace brushworks::host::gl {
namespace {

/// What glGetIntegerv calls the binding of a target; 0 for a target on which nobody maps.
GLenum bindingOf(GLenum target) {
    switch (target) {
        case GL_ARRAY_BUFFER:
            return GL_ARRAY_BUFFER_BINDING;
        case GL_ELEMENT_ARRAY_BUFFER:
            return GL_ELEMENT_ARRAY_BUFFER_BINDING;
        case GL_PIXEL_PACK_BUFFER:
            return GL_PIXEL_PACK_BUFFER_BINDING;
        case GL_PIXEL_UNPACK_BUFFER:
            return GL_PIXEL_UNPACK_BUFFER_BINDING;
        default:
            return 0;
    }
}

void endMappingOf(GLuint name) {
    GLint mapped = GL_FALSE;
    glGetNamedBufferParameteriv(name, GL_BUFFER_MAPPED, &mapped);
    if (mapped != GL_FALSE) glUnmapNamedBuffer(name);
}

}  // namespace

std::optional<BufferStorage> BufferStorage::create(const BufferKey& key, DebugLog& log) {
    log.check("a call of the effect");
    BufferStorage storage;
    const DebugLog::Muted muted(log);
    drainErrors();
    glCreateBuffers(1, &storage.name);
    glNamedBufferData(storage.name, key.size, nullptr, key.usage);
    if (drainErrors()) {
        storage.destroy();
        return std::nullopt;
    }
    return storage;
}

void BufferStorage::destroy() const {
    glDeleteBuffers(1, &name);
}

bool Buffer::Bind(unsigned int target) {
    if (!IsValid()) return false;
    glBindBuffer(target, m_storage.name);
    m_log.check("IGLBuffer::Bind");
    return true;
}

void* Buffer::Map(int offset, unsigned int access) {
    const bool known = access == GL_READ_ONLY || access == GL_WRITE_ONLY || access == GL_READ_WRITE;
    if (!IsValid() || !known || offset < 0 || offset >= m_key.size) return nullptr;
    endMapping();
    auto* start = static_cast<std::uint8_t*>(glMapNamedBuffer(m_storage.name, access));
    m_log.check("Map");
    return start != nullptr ? start + offset : nullptr;
}

void Buffer::write(const void* data) {
    glNamedBufferSubData(m_storage.name, 0, m_key.size, data);
}

BufferStorage Buffer::takeStorage() {
    if (IsValid()) endMapping();
    return std::exchange(m_storage, {});
}

void Buffer::endMapping() {
    endMappingOf(m_storage.name);
}

void unbindBuffer(unsigned int target) {
    if (const GLenum binding = bindingOf(target); binding != 0) {
        GLint bound = 0;
        glGetIntegerv(binding, &bound);
        if (bound != 0) endMappingOf(static_cast<GLuint>(bound));
    }
    glBindBuffer(target, 0);
}

}  // namespace brushworks::host::gl
