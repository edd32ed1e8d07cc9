#include "frames/art_frame.h"

#include "primitives/memory.h"

namespace brushworks {
namespace {

unsigned char* AllocateRows(int width, int height, int channels, int bytesPerChannel,
                            int* byteSpan) {
    using Malloc8u = std::uint8_t* (*)(int, int, int*);
    using Malloc16u = std::uint16_t* (*)(int, int, int*);
    constexpr Malloc8u kBytes[] = {ippiMalloc_8u_C1, ippiMalloc_8u_C2, ippiMalloc_8u_C3,
                                   ippiMalloc_8u_C4};
    constexpr Malloc16u kWords[] = {ippiMalloc_16u_C1, ippiMalloc_16u_C2, ippiMalloc_16u_C3,
                                    ippiMalloc_16u_C4};
    if (channels < 1 || channels > 4) return nullptr;
    if (bytesPerChannel == 1) return kBytes[channels - 1](width, height, byteSpan);
    if (bytesPerChannel == 2)
        return reinterpret_cast<unsigned char*>(kWords[channels - 1](width, height, byteSpan));
    return nullptr;
}

}  // namespace

CArtFrame::~CArtFrame() {
    Free();
}

void CArtFrame::Free() {
    if (m_bLocalAlloc && m_pBuffer) ippiFree(m_pBuffer);
    m_pBuffer = nullptr;
}

bool CArtFrame::Init(int width, int height, int channels, int bytesPerChannel) {
    Free();
    m_nWidth = width;
    m_nHeight = height;
    m_nByteSpan = 0;
    m_nChannels = channels;
    m_nBytesPerChannel = bytesPerChannel;
    m_bLocalAlloc = true;
    m_rcActive = {0, 0, width, height};
    m_pBuffer = AllocateRows(width, height, channels, bytesPerChannel, &m_nByteSpan);
    m_nPixelSpan = m_pBuffer ? m_nByteSpan / (channels * bytesPerChannel) : 0;
    return m_pBuffer != nullptr;
}

}  // namespace brushworks
