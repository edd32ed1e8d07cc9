// Lets work begin when there is memory for it.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace brushworks::tools {

/// An amount that workers share. [any thread]
class MemoryGate {
  public:
    explicit MemoryGate(std::int64_t whole) : m_nFree(whole), m_nWhole(whole) {}

    /// A part of it, given back when this goes.
    class Share {
      public:
        Share(MemoryGate& gate, std::int64_t bytes) : m_gate(gate), m_nBytes(bytes) {}
        ~Share() { m_gate.giveBack(m_nBytes); }
        std::int64_t bytes() const { return m_nBytes; }
        Share(const Share&) = delete;
        Share& operator=(const Share&) = delete;

      private:
        MemoryGate& m_gate;
        const std::int64_t m_nBytes;
    };

    /// Waits until so much is free; of more than the whole, until all is. A worker that has a share
    /// takes no other.
    Share take(std::int64_t bytes) {
        const std::int64_t part = std::min(bytes, m_nWhole);
        std::unique_lock lock(m_mutex);
        if (m_nFree < part) m_bWaited = true;
        m_given.wait(lock, [&] { return m_nFree >= part; });
        m_nFree -= part;
        return Share(*this, part);
    }

    /// Whether anyone had to wait.
    bool hasWaited() const {
        const std::lock_guard lock(m_mutex);
        return m_bWaited;
    }

  private:
    void giveBack(std::int64_t bytes) {
        {
            const std::lock_guard lock(m_mutex);
            m_nFree += bytes;
        }
        m_given.notify_all();
    }

    mutable std::mutex m_mutex;
    std::condition_variable m_given;
    std::int64_t m_nFree;
    const std::int64_t m_nWhole;
    bool m_bWaited = false;
};

}  // namespace brushworks::tools
