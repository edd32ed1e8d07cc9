// GL objects that wait for their next use: making one costs more than keeping it.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>

namespace brushworks::host::gl {

/// Idle objects of one kind. Keys that are equal make one object as good as another, and know their
/// `bytes()`; `Object::destroy()` deletes its GL names. [the context's thread, context current]
template <class Key, class Object>
class ObjectPool {
  public:
    explicit ObjectPool(std::size_t byteLimit) : m_nByteLimit(byteLimit) {}

    /// An object of that key, the one that was used last.
    std::optional<Object> take(const Key& key) {
        for (auto entry = m_idle.rbegin(); entry != m_idle.rend(); ++entry) {
            if (!(entry->key == key)) continue;
            const Object object = entry->object;
            m_nBytes -= key.bytes();
            m_idle.erase(std::next(entry).base());
            return object;
        }
        return std::nullopt;
    }

    /// Keeps an object, and destroys those that have waited longest while all are too large.
    void put(const Key& key, const Object& object) {
        m_idle.push_back({key, object});
        m_nBytes += key.bytes();
        while (m_nBytes > m_nByteLimit) dropOldest();
    }

    void clear() {
        while (!m_idle.empty()) dropOldest();
    }

  private:
    struct Entry {
        Key key;
        Object object;
    };

    void dropOldest() {
        m_nBytes -= m_idle.front().key.bytes();
        m_idle.front().object.destroy();
        m_idle.pop_front();
    }

    std::size_t m_nByteLimit;
    std::size_t m_nBytes = 0;
    std::deque<Entry> m_idle;
};

}  // namespace brushworks::host::gl
