// A light frame for the 16-bit work that CFrame cannot allocate.
#pragma once

#include <cstdint>

#include "brushworks/frame.h"

namespace brushworks {

/// Always takes its memory from the primitives, never from the host.
class CArtFrame {
  public:
    CArtFrame() = default;
    ~CArtFrame();
    CArtFrame(const CArtFrame&) = delete;
    CArtFrame& operator=(const CArtFrame&) = delete;

    /// Frees an owned buffer and allocates; 1 to 4 channels of 1 or 2 bytes. Returns whether a
    /// buffer was obtained.
    bool Init(int width, int height, int channels, int bytesPerChannel);

    /// The samples of a frame of 2-byte channels.
    std::uint16_t* words() const { return reinterpret_cast<std::uint16_t*>(m_pBuffer); }

    unsigned char* m_pBuffer = nullptr;
    std::int32_t m_nWidth = 0;
    std::int32_t m_nHeight = 0;
    std::int32_t m_nByteSpan = 0;   ///< row stride in bytes
    std::int32_t m_nPixelSpan = 0;  ///< row stride in pixels
    std::int32_t m_nChannels = 0;
    std::int32_t m_nBytesPerChannel = 1;
    bool m_bLocalAlloc = false;
    tagRECT m_rcActive = {};

  private:
    void Free();
};

}  // namespace brushworks
