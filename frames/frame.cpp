#include "frames/frame.h"

#include <cstddef>
#include <limits>

#include "frames/memory_allocator.h"
#include "primitives/memory.h"

namespace brushworks {
namespace {

std::int32_t PixelSpan(std::int32_t byteSpan, std::int32_t depth) {
    return depth == 0 ? 0 : static_cast<std::int32_t>(std::int64_t{byteSpan} / depth);
}

/// The magnitude of a size; the one that has none in 32 bits stays negative and is refused later.
std::int32_t Magnitude(std::int32_t size) {
    return size < 0 && size != std::numeric_limits<std::int32_t>::min() ? -size : size;
}

}  // namespace

void CFrame::Clear() {
    if (m_bLocalAlloc && m_pBuffer) {
        if (m_pMemoryAllocator && m_pMemoryAllocator->hostAllocator())
            m_pMemoryAllocator->hostAllocator()->FreePicture(m_pBuffer);
        else
            ippiFree(m_pBuffer);
    }
    m_pBuffer = nullptr;
    m_nWidth = m_nHeight = m_nByteSpan = m_nPixelSpan = m_nDepth = 0;
    m_bLocalAlloc = m_bFlipped = false;
    m_pfPixelFormat = PixelFormatBGRA8;
    m_pMemoryAllocator = nullptr;
}

bool CFrame::Init(unsigned char* buffer, int width, int height, int byteSpan, int depth,
                  PixelFormat format, bool flipped) {
    Clear();
    if (byteSpan < 0) {
        if (buffer && height > 0) buffer += static_cast<std::ptrdiff_t>(height - 1) * byteSpan;
        flipped = !flipped;
        byteSpan = Magnitude(byteSpan);
    }
    m_pBuffer = buffer;
    m_nWidth = width;
    m_nHeight = height;
    m_nByteSpan = byteSpan;
    m_nPixelSpan = PixelSpan(byteSpan, depth);
    m_nDepth = depth;
    m_bFlipped = flipped;
    m_pfPixelFormat = format;
    return true;
}

bool CFrame::Init(const FrameParams* params) {
    Clear();
    if (!params) return false;
    return Init(params->pBuffer, params->nWidth, params->nHeight, params->nByteSpan, params->nDepth,
                params->pfPixelFormat, params->bFlipped);
}

bool CFrame::Init(tagBITMAPINFOHEADER* header, unsigned char* pixels) {
    const int depth = header->biBitCount >> 3;
    const auto span = static_cast<std::int32_t>(std::int64_t{depth} * header->biWidth);
    return Init(pixels, header->biWidth, Magnitude(header->biHeight), span, depth, PixelFormatBGRA8,
                header->biHeight < 0);
}

bool CFrame::Init(int width, int height, int depth, MemoryAllocator* allocator, PixelFormat format,
                  bool flipped) {
    Clear();
    m_bLocalAlloc = true;
    m_nWidth = width;
    m_nHeight = height;
    m_nDepth = depth;
    m_pMemoryAllocator = allocator;
    MemoryAllocator primitivesOnly;
    MemoryAllocator* source = allocator ? allocator : &primitivesOnly;
    const bool obtained = source->AllocatePicture(&m_pBuffer, width, height, depth, &m_nByteSpan);
    m_nPixelSpan = PixelSpan(m_nByteSpan, depth);
    m_pfPixelFormat = depth == 1 ? PixelFormatMono8 : format;
    m_bFlipped = flipped;
    return obtained;
}

bool CFrame::Init(CFrame* parent, int x, int y, int width, int height, bool flipped) {
    unsigned char* buffer = parent->m_pBuffer;
    if (buffer)
        buffer += static_cast<std::ptrdiff_t>(y) * parent->m_nByteSpan +
                  static_cast<std::ptrdiff_t>(x) * parent->m_nDepth;
    return Init(buffer, width, height, parent->m_nByteSpan, parent->m_nDepth,
                parent->m_pfPixelFormat, flipped);
}

FrameParams CFrame::GetFrameParams() const {
    return {m_pBuffer, m_nWidth, m_nHeight,       m_nByteSpan, m_nDepth,
            0,         0,        m_pfPixelFormat, m_bFlipped};
}

}  // namespace brushworks
