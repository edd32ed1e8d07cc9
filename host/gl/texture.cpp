// Textures through direct state access, so that no binding of the effects is disturbed.
#include "host/gl/texture.h"

#include <epoxy/gl.h>

#include <array>

namespace brushworks::host::gl {

std::optional<TextureStorage> TextureStorage::create(const TextureKey& key, DebugLog& log) {
    log.check("a call of the effect");
    TextureStorage storage;
    const DebugLog::Muted muted(log);
    drainErrors();
    glCreateTextures(GL_TEXTURE_2D, 1, &storage.texture);
    glTextureStorage2D(storage.texture, 1, key.layout.internalFormat, key.width, key.height);
    if (drainErrors()) {
        storage.destroy();
        return std::nullopt;
    }
    return storage;
}

void TextureStorage::destroy() const {
    if (framebuffer != 0) glDeleteFramebuffers(1, &framebuffer);
    glDeleteTextures(1, &texture);
}

Texture::Texture(const TextureKey& key, const TextureStorage& storage, DebugLog& log)
    : m_key(key), m_storage(storage), m_log(log) {
    glTextureParameteri(name(), GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTextureParameteri(name(), GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTextureParameteri(name(), GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTextureParameteri(name(), GL_TEXTURE_MAG_FILTER, GL_NEAREST);
}

bool Texture::Upload(PixelFormat format, const void* data, int rowSpan) {
    const std::optional<PixelLayout> layout = pixelLayout(format);
    if (!IsValid() || data == nullptr || !layout || layout->channels != m_key.layout.channels) {
        return false;
    }
    const bool done =
        uploadPixels(name(), {0, 0, m_key.width, m_key.height}, *layout, data, rowSpan);
    m_log.check("Upload");
    return done;
}

bool Texture::SetFilter(unsigned int filter) {
    if (!IsValid() || (filter != GL_NEAREST && filter != GL_LINEAR)) return false;
    glTextureParameteri(name(), GL_TEXTURE_MIN_FILTER, static_cast<GLint>(filter));
    glTextureParameteri(name(), GL_TEXTURE_MAG_FILTER, static_cast<GLint>(filter));
    return true;
}

unsigned int Texture::framebuffer() {
    if (!IsValid()) return 0;
    if (m_storage.framebuffer == 0) {
        unsigned int made = 0;
        glCreateFramebuffers(1, &made);
        glNamedFramebufferTexture(made, GL_COLOR_ATTACHMENT0, name(), 0);
        if (glCheckNamedFramebufferStatus(made, GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE) {
            m_storage.framebuffer = made;
        } else {
            glDeleteFramebuffers(1, &made);
        }
    }
    return m_storage.framebuffer;
}

bool Texture::holds(const Region& region) const {
    return region.left >= 0 && region.top >= 0 && region.width > 0 && region.height > 0 &&
           region.width <= m_key.width - region.left && region.height <= m_key.height - region.top;
}

void Texture::fillWithGarbage(std::uint64_t seed) {
    fillFramebufferWithGarbage(framebuffer(), m_key.layout, seed);
}

void fillFramebufferWithGarbage(unsigned int framebuffer, const PixelLayout& layout,
                                std::uint64_t seed) {
    std::array<float, 4> garbage{};
    for (float& sample : garbage) {
        seed = seed * 6364136223846793005U + 1442695040888963407U;
        const float fraction = static_cast<float>(seed >> 40) / float(1 << 24);
        // Floats go far out of the range of colours: no clamp at the end hides them.
        sample = layout.type == GL_FLOAT ? 2000 * fraction - 1000 : fraction;
    }
    glClearNamedFramebufferfv(framebuffer, GL_COLOR, 0, garbage.data());
}

}  // namespace brushworks::host::gl
