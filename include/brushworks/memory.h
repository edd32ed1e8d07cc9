// Scratch memory that a host lends to renders.
#pragma once

#include <cstdint>

#include "brushworks/unknown.h"

namespace brushworks {

/// Implemented by hosts that want to serve the library's scratch memory; found by asking the
/// IVideoHost for IID_MemoryAllocator. Optional. [any render thread, several at once when the host
/// renders in parallel]
class IMemoryAllocator : public IUnknown {
  public:
    /// Stores a block of `size` bytes, or null when there is none to be had.
    virtual void Allocate(void** block, unsigned long size) = 0;
    /// Takes back a block from Allocate.
    virtual void Free(void* block) = 0;
    /// Stores a picture of `height` rows of `width` pixels of `depth` bytes, and in `*byteSpan` the
    /// bytes from row to row, at least width * depth; or stores null. Align rows for float access.
    virtual void AllocatePicture(std::uint8_t** buffer, int width, int height, int depth,
                                 int* byteSpan) = 0;
    /// Takes back a picture from AllocatePicture.
    virtual void FreePicture(std::uint8_t* buffer) = 0;
};

}  // namespace brushworks
