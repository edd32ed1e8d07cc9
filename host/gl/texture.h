// A texture of the host.
#pragma once

#include <optional>

#include "brushworks/gl.h"
#include "host/gl/counted.h"
#include "host/gl/debug_log.h"
#include "host/gl/object_pool.h"
#include "host/gl/pixel_transfer.h"

namespace brushworks::host::gl {

/// What makes one texture's storage as good as another's.
struct TextureKey {
    int width;
    int height;
    PixelLayout layout;

    bool operator==(const TextureKey& other) const {
        return width == other.width && height == other.height &&
               layout.internalFormat == other.layout.internalFormat;
    }
    std::size_t bytes() const {
        return std::size_t(width) * std::size_t(height) * std::size_t(layout.bytes);
    }
};

/// The GL names behind a texture: its texels, and the framebuffer over them once one was needed.
struct TextureStorage {
    unsigned int texture = 0;
    unsigned int framebuffer = 0;

    /// None when there is no memory for it.
    static std::optional<TextureStorage> create(const TextureKey& key, DebugLog& log);
    void destroy() const;
};

using TexturePool = ObjectPool<TextureKey, TextureStorage>;

/// A texture with nearest sampling and clamped edges, until SetFilter says otherwise. It is valid
/// until its storage is taken away, however long references last. [the context's thread]
class Texture final : public Counted<IGLTexture> {
  public:
    /// The storage is the texture's until takeStorage().
    Texture(const TextureKey& key, const TextureStorage& storage, DebugLog& log);

    bool Upload(PixelFormat format, const void* data, int rowSpan) override;
    bool SetFilter(unsigned int filter) override;
    int GetFormat() override { return static_cast<int>(m_key.layout.internalFormat); }
    bool IsValid() override { return m_storage.texture != 0; }

    const TextureKey& key() const { return m_key; }
    /// The GL name; 0 once the storage is gone.
    unsigned int name() const { return m_storage.texture; }
    /// The framebuffer over the texels; 0 when none can be had.
    unsigned int framebuffer();
    bool holds(const Region& region) const;
    /// Fills the texels with nonsense that differs from time to time, so that reading what nobody
    /// wrote shows.
    void fillWithGarbage(std::uint64_t seed);
    TextureStorage takeStorage() { return std::exchange(m_storage, {}); }

  private:
    ~Texture() override = default;

    TextureKey m_key;
    TextureStorage m_storage;
    DebugLog& m_log;
};

/// Fills a framebuffer's colours with nonsense.
void fillFramebufferWithGarbage(unsigned int framebuffer, const PixelLayout& layout,
                                std::uint64_t seed);

}  // namespace brushworks::host::gl
