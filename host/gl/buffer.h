// A buffer object of the host.
#pragma once

#include <optional>

#include "brushworks/gl.h"
#include "host/gl/counted.h"
#include "host/gl/debug_log.h"
#include "host/gl/object_pool.h"

namespace brushworks::host::gl {

/// What makes one buffer as good as another.
struct BufferKey {
    int size;
    unsigned int usage;

    bool operator==(const BufferKey&) const = default;
    std::size_t bytes() const { return std::size_t(size); }
};

/// The GL name behind a buffer.
struct BufferStorage {
    unsigned int name = 0;

    /// None when there is no memory for it, or for a usage that OpenGL does not know.
    static std::optional<BufferStorage> create(const BufferKey& key, DebugLog& log);
    void destroy() const;
};

using BufferPool = ObjectPool<BufferKey, BufferStorage>;

/// Valid until its storage is taken away, however long references last. [the context's thread]
class Buffer final : public Counted<IGLBuffer> {
  public:
    Buffer(const BufferKey& key, const BufferStorage& storage, DebugLog& log)
        : m_key(key), m_storage(storage), m_log(log) {}

    bool Bind(unsigned int target) override;
    void* Map(int offset, unsigned int access) override;
    bool IsValid() override { return m_storage.name != 0; }

    const BufferKey& key() const { return m_key; }
    void write(const void* data);
    /// Ends a mapping, if there is one.
    BufferStorage takeStorage();

  private:
    ~Buffer() override = default;
    void endMapping();

    BufferKey m_key;
    BufferStorage m_storage;
    DebugLog& m_log;
};

/// Ends the mapping of whatever buffer is bound to `target`, and unbinds it.
void unbindBuffer(unsigned int target);

}  // namespace brushworks::host::gl
