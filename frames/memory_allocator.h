// A render's front to scratch memory: the host's allocator where it offers one, else aligned memory
// of the primitives.
#pragma once

#include <cstdint>
#include <vector>

#include "brushworks/host.h"
#include "brushworks/memory.h"

namespace brushworks {

/// Lives in one render, on one thread. It frees no pictures: frames free their own, so every frame
/// dies before its allocator.
class MemoryAllocator {
  public:
    /// No host: memory comes from the primitives.
    MemoryAllocator() = default;
    explicit MemoryAllocator(IVideoHost* host) { setVideoHost(host); }
    virtual ~MemoryAllocator();
    MemoryAllocator(const MemoryAllocator&) = delete;
    MemoryAllocator& operator=(const MemoryAllocator&) = delete;

    /// Drops the interface held so far and asks `host`, unless null, for another.
    void setVideoHost(IVideoHost* host);

    /// Stores a picture and its row stride in bytes. False when an argument is null or not positive
    /// (nothing is asked of the host then), when the host refuses, or, without a host, for a depth
    /// other than 1, 2, 3, 4 (bytes) and 16 (four floats).
    bool AllocatePicture(std::uint8_t** buffer, int width, int height, int depth, int* byteSpan);

    /// The host's interface, borrowed, or null.
    IMemoryAllocator* hostAllocator() const { return m_pMemoryAllocator; }

  private:
    struct MemoryAllocInfo {
        std::uint64_t m_anWords[2];
    };

    IMemoryAllocator* m_pMemoryAllocator = nullptr;
    // Nothing fills these; they keep their place in the record.
    std::uint64_t m_anBlockA[3] = {};
    std::uint64_t m_anBlockB[3] = {};
    std::vector<MemoryAllocInfo> m_vAllocInfo;
};

/// Plain byte blocks from the same source. A block goes back by the path that it came by.
class MemoryAllocatorHelper {
  public:
    /// `allocator` is borrowed and may be null.
    explicit MemoryAllocatorHelper(MemoryAllocator* allocator) : m_pAllocator(allocator) {}

    /// Stores a block. False, with `*block` as it was, for a null `block` or a size of 0.
    bool Allocate(void** block, unsigned long size);
    void Free(void* block);

  private:
    IMemoryAllocator* hostAllocator() const;

    MemoryAllocator* m_pAllocator;
};

}  // namespace brushworks
