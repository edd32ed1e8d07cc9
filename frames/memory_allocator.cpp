#include "frames/memory_allocator.h"

#include "primitives/memory.h"

namespace brushworks {

MemoryAllocator::~MemoryAllocator() {
    setVideoHost(nullptr);
}

void MemoryAllocator::setVideoHost(IVideoHost* host) {
    if (m_pMemoryAllocator) m_pMemoryAllocator->Release();
    m_pMemoryAllocator = nullptr;
    if (!host) return;
    void* face = nullptr;
    if (host->QueryInterface(IID_MemoryAllocator, &face) == kInterfaceFound)
        m_pMemoryAllocator = static_cast<IMemoryAllocator*>(face);
}

bool MemoryAllocator::AllocatePicture(std::uint8_t** buffer, int width, int height, int depth,
                                      int* byteSpan) {
    if (!buffer || !byteSpan || width <= 0 || height <= 0 || depth <= 0) return false;
    *buffer = nullptr;
    if (m_pMemoryAllocator) {
        m_pMemoryAllocator->AllocatePicture(buffer, width, height, depth, byteSpan);
        return *buffer != nullptr;
    }
    switch (depth) {
        case 1:
            *buffer = ippiMalloc_8u_C1(width, height, byteSpan);
            break;
        case 2:
            *buffer = ippiMalloc_8u_C2(width, height, byteSpan);
            break;
        case 3:
            *buffer = ippiMalloc_8u_C3(width, height, byteSpan);
            break;
        case 4:
            *buffer = ippiMalloc_8u_C4(width, height, byteSpan);
            break;
        case 16:
            *buffer = reinterpret_cast<std::uint8_t*>(ippiMalloc_32f_C4(width, height, byteSpan));
            break;
        default:
            break;
    }
    return *buffer != nullptr;
}

IMemoryAllocator* MemoryAllocatorHelper::hostAllocator() const {
    return m_pAllocator ? m_pAllocator->hostAllocator() : nullptr;
}

bool MemoryAllocatorHelper::Allocate(void** block, unsigned long size) {
    if (!block || size == 0) return false;
    *block = nullptr;
    if (IMemoryAllocator* host = hostAllocator())
        host->Allocate(block, size);
    else
        *block = new std::uint8_t[size];
    return *block != nullptr;
}

void MemoryAllocatorHelper::Free(void* block) {
    if (!block) return;
    if (IMemoryAllocator* host = hostAllocator())
        host->Free(block);
    else
        delete[] static_cast<std::uint8_t*>(block);
}

}  // namespace brushworks
