// Where drawing goes: framebuffers over textures, multisampled ones beside them, and a target of
// the host's own for when there is none.
#pragma once

#include <string>
#include <vector>

#include "host/gl/debug_log.h"
#include "host/gl/object_pool.h"
#include "host/gl/texture.h"

namespace brushworks::host::gl {

/// What makes one multisampled target as good as another.
struct MultisampleKey {
    TextureKey texture;
    int samples;

    bool operator==(const MultisampleKey&) const = default;
    std::size_t bytes() const { return texture.bytes() * std::size_t(samples); }
};

/// A multisampled picture and the framebuffer over it.
struct MultisampleStorage {
    unsigned int renderbuffer = 0;
    unsigned int framebuffer = 0;

    /// None when there is no memory for it, or so many samples are not to be had.
    static std::optional<MultisampleStorage> create(const MultisampleKey& key, DebugLog& log);
    void destroy() const;
};

/// The render targets of one context. No target has depth. [the context's thread, context current]
class RenderTargets {
  public:
    /// Binds the host's own target. `garbage`: fresh multisampled targets start as nonsense.
    RenderTargets(DebugLog& log, std::size_t poolBytes, bool garbage);

    /// Drawing and reading go to the region of the texture.
    bool bind(Texture& texture, const Region& region);
    /// Drawing goes to a multisampled picture of the texture's size, until it is resolved. Where
    /// so many samples are not to be had, drawing goes to the texture: an effect asks again and
    /// again for what is refused.
    bool bindMultisampled(Texture& texture, const Region& region, int samples);
    /// Drawing goes where nobody looks, and is no error.
    void bindOwn();
    /// Puts what was drawn multisampled into the texture, which is the target from then on. Nothing
    /// is to do for a texture without such drawing.
    bool resolve(Texture& texture);

    /// The texture is about to lose its storage.
    void forget(const Texture& texture);
    const Texture* current() const { return m_pCurrent; }
    /// How many multisampled pictures wait to be resolved.
    std::size_t unresolved() const { return m_multisampled.size(); }
    void destroyAll();

  private:
    struct Multisampled {
        const Texture* texture;
        MultisampleKey key;
        MultisampleStorage storage;
    };

    Multisampled* multisampledOf(const Texture& texture);
    void drop(const Texture& texture);
    void bindFramebuffer(unsigned int framebuffer, const Region& region);

    DebugLog& m_log;
    bool m_bGarbage;
    std::uint64_t m_nGarbage = 0;
    ObjectPool<MultisampleKey, MultisampleStorage> m_pool;
    std::vector<Multisampled> m_multisampled;
    const Texture* m_pCurrent = nullptr;
    MultisampleStorage m_own;
};

}  // namespace brushworks::host::gl
