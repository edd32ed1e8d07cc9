#include "processors/canvaskit/fill_border.h"

#include <climits>

#include "frames/memory_allocator.h"
#include "primitives/border.h"
#include "processors/region.h"

namespace brushworks::Canvaskit {
namespace {

constexpr int kStatusNoSuchDepth = -2;

int Fill(CFrame& src, CFrame& dst, int left, int top, MemoryAllocator* allocator) {
    const long long width = src.m_nWidth + 2LL * left, height = src.m_nHeight + 2LL * top;
    if (&src == &dst || left < 0 || top < 0 || width > INT_MAX || height > INT_MAX)
        return kStatusBadArgument;
    dst.Init(static_cast<int>(width), static_cast<int>(height), src.m_nDepth, allocator,
             PixelFormatBGRA8, false);
    auto* widen = src.m_nDepth == 1   ? ippiCopyReplicateBorder_8u_C1R
                  : src.m_nDepth == 4 ? ippiCopyReplicateBorder_8u_C4R
                                      : nullptr;
    if (!widen) return kStatusNoSuchDepth;
    return widen(src.m_pBuffer, src.m_nByteSpan, Processors::SizeOf(src), dst.m_pBuffer,
                 dst.m_nByteSpan, Processors::SizeOf(dst), top, left);
}

}  // namespace

bool CFillBorder::Process(CFrame& src, CFrame& dst, int left, int top, MemoryAllocator* allocator) {
    return Fill(src, dst, left, top, allocator) != kStatusOk;
}

bool CFillBorder::Process(CFrame& src, CFrame& dst, int border, MemoryAllocator* allocator) {
    return Process(src, dst, border, border, allocator);
}

}  // namespace brushworks::Canvaskit
