// Binds framebuffers, and resolves multisampled ones by a blit.
#include "host/gl/render_targets.h"

#include <epoxy/gl.h>

#include <algorithm>

namespace brushworks::host::gl {

std::optional<MultisampleStorage> MultisampleStorage::create(const MultisampleKey& key,
                                                             DebugLog& log) {
    log.check("a call of the effect");
    MultisampleStorage storage;
    const DebugLog::Muted muted(log);
    drainErrors();
    glCreateRenderbuffers(1, &storage.renderbuffer);
    glNamedRenderbufferStorageMultisample(storage.renderbuffer, key.samples,
                                          key.texture.layout.internalFormat, key.texture.width,
                                          key.texture.height);
    glCreateFramebuffers(1, &storage.framebuffer);
    glNamedFramebufferRenderbuffer(storage.framebuffer, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                                   storage.renderbuffer);
    const bool complete = glCheckNamedFramebufferStatus(storage.framebuffer, GL_FRAMEBUFFER) ==
                          GL_FRAMEBUFFER_COMPLETE;
    if (drainErrors() || !complete) {
        storage.destroy();
        return std::nullopt;
    }
    return storage;
}

void MultisampleStorage::destroy() const {
    glDeleteFramebuffers(1, &framebuffer);
    glDeleteRenderbuffers(1, &renderbuffer);
}

RenderTargets::RenderTargets(DebugLog& log, std::size_t poolBytes, bool garbage)
    : m_log(log), m_bGarbage(garbage), m_pool(poolBytes) {
    // A context without a window has no framebuffer of its own to go back to.
    const TextureKey onePixel{1, 1, *pixelLayout(PixelFormatBGRA8)};
    m_own = MultisampleStorage::create({onePixel, 0}, log).value_or(MultisampleStorage{});
    bindOwn();
}

void RenderTargets::bindFramebuffer(unsigned int framebuffer, const Region& region) {
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glViewport(region.left, region.top, region.width, region.height);
}

bool RenderTargets::bind(Texture& texture, const Region& region) {
    const unsigned int framebuffer = texture.framebuffer();
    if (framebuffer == 0) return false;
    bindFramebuffer(framebuffer, region);
    m_pCurrent = &texture;
    return true;
}

bool RenderTargets::bindMultisampled(Texture& texture, const Region& region, int samples) {
    if (!texture.IsValid()) return false;
    const MultisampleKey key{texture.key(), samples};
    Multisampled* target = multisampledOf(texture);
    if (target != nullptr && !(target->key == key)) {
        drop(texture);
        target = nullptr;
    }
    if (target == nullptr) {
        std::optional<MultisampleStorage> storage = m_pool.take(key);
        if (!storage) storage = MultisampleStorage::create(key, m_log);
        if (!storage) return bind(texture, region);
        if (m_bGarbage) {
            fillFramebufferWithGarbage(storage->framebuffer, key.texture.layout, ++m_nGarbage);
        }
        m_multisampled.push_back({&texture, key, *storage});
        target = &m_multisampled.back();
    }
    bindFramebuffer(target->storage.framebuffer, region);
    m_pCurrent = &texture;
    return true;
}

void RenderTargets::bindOwn() {
    bindFramebuffer(m_own.framebuffer, {0, 0, 1, 1});
    m_pCurrent = nullptr;
}

bool RenderTargets::resolve(Texture& texture) {
    if (!texture.IsValid()) return false;
    const Multisampled* target = multisampledOf(texture);
    if (target == nullptr) return true;
    const unsigned int framebuffer = texture.framebuffer();
    if (framebuffer == 0) return false;
    const int width = texture.key().width;
    const int height = texture.key().height;
    glBlitNamedFramebuffer(target->storage.framebuffer, framebuffer, 0, 0, width, height, 0, 0,
                           width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    if (m_pCurrent == &texture) glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    drop(texture);
    return true;
}

void RenderTargets::forget(const Texture& texture) {
    if (m_pCurrent == &texture) bindOwn();
    drop(texture);
}

RenderTargets::Multisampled* RenderTargets::multisampledOf(const Texture& texture) {
    const auto found = std::find_if(m_multisampled.begin(), m_multisampled.end(),
                                    [&](const Multisampled& m) { return m.texture == &texture; });
    return found == m_multisampled.end() ? nullptr : &*found;
}

void RenderTargets::drop(const Texture& texture) {
    const Multisampled* target = multisampledOf(texture);
    if (target == nullptr) return;
    m_pool.put(target->key, target->storage);
    m_multisampled.erase(m_multisampled.begin() + (target - m_multisampled.data()));
}

void RenderTargets::destroyAll() {
    for (const Multisampled& target : m_multisampled) target.storage.destroy();
    m_multisampled.clear();
    m_pool.clear();
    m_own.destroy();
}

}  // namespace brushworks::host::gl
