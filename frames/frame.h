// A rectangle of pixels in memory, which the frame may own. Every step on the processor works on
// these.
#pragma once

#include <cstdint>

#include "brushworks/frame.h"

namespace brushworks {

class MemoryAllocator;

/// Header of a device-independent bitmap.
struct tagBITMAPINFOHEADER {
    std::uint32_t biSize;
    std::int32_t biWidth;
    std::int32_t biHeight;  ///< negative for rows that run bottom-up in this system's sense
    std::uint16_t biPlanes;
    std::uint16_t biBitCount;
    std::uint32_t biCompression;
    std::uint32_t biSizeImage;
    std::int32_t biXPelsPerMeter;
    std::int32_t biYPelsPerMeter;
    std::uint32_t biClrUsed;
    std::uint32_t biClrImportant;
};
static_assert(sizeof(tagBITMAPINFOHEADER) == 40);

/// Empty, wrapping memory of somebody else, or owning. Frames live on the stack of a render and die
/// with it; a frame's allocator outlives it. The stride is whatever the allocator or the host
/// chose: no code assumes that a row is width times depth bytes.
class CFrame {
  public:
    CFrame() = default;
    ~CFrame() { Clear(); }
    CFrame(const CFrame&) = delete;
    CFrame& operator=(const CFrame&) = delete;

    /// Frees an owned buffer and returns to the state of the constructor.
    void Clear();

    /// Wraps memory that stays its owner's. A negative `byteSpan` means that `buffer` is the row
    /// that is first on screen and the rows walk down through memory: the frame then turns
    /// `flipped` over and starts at the row with the lowest address. Always true.
    bool Init(unsigned char* buffer, int width, int height, int byteSpan, int depth,
              PixelFormat format, bool flipped);
    /// Wraps a host's frame; false for null.
    bool Init(const FrameParams* params);
    /// Wraps a device-independent bitmap.
    bool Init(tagBITMAPINFOHEADER* header, unsigned char* pixels);
    /// Allocates, from the primitives when `allocator` is null. A depth of 1 is PixelFormatMono8
    /// whatever was asked for. Returns whether a buffer was obtained.
    bool Init(int width, int height, int depth, MemoryAllocator* allocator, PixelFormat format,
              bool flipped);
    /// A view into `parent`, whose flag it does not inherit. Always true; without a buffer where
    /// the parent has none.
    bool Init(CFrame* parent, int x, int y, int width, int height, bool flipped);

    /// The frame as a record.
    FrameParams GetFrameParams() const;

    unsigned char* m_pBuffer = nullptr;              ///< the row with the lowest address, or null
    std::int32_t m_nWidth = 0;                       ///< pixels per row
    std::int32_t m_nHeight = 0;                      ///< rows
    std::int32_t m_nByteSpan = 0;                    ///< row stride in bytes
    std::int32_t m_nPixelSpan = 0;                   ///< row stride in whole pixels
    std::int32_t m_nDepth = 0;                       ///< bytes per pixel
    bool m_bLocalAlloc = false;                      ///< the frame owns its buffer
    bool m_bFlipped = false;                         ///< rows run bottom-up
    PixelFormat m_pfPixelFormat = PixelFormatBGRA8;  ///< layout
    MemoryAllocator* m_pMemoryAllocator = nullptr;   ///< where the buffer came from; never owned
};

}  // namespace brushworks
