#include "effects/mosaic/fill.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "primitives/copy.h"
#include "primitives/flood_fill.h"
#include "primitives/memory.h"
#include "processors/region.h"

namespace brushworks {
namespace {

struct Freer {
    void operator()(std::uint8_t* vector) const { ippsFree(vector); }
};
using Buffer = std::unique_ptr<std::uint8_t, Freer>;

Buffer FillBuffer(IppiSize size) {
    int bytes = 0;
    if (ippiFloodFillGetSize(size, &bytes) != kStatusOk) return nullptr;
    return Buffer(ippsMalloc_8u(bytes));
}

bool IsBlank(const CFrame& frame, IppiPoint p) {
    std::uint32_t pixel;
    std::memcpy(&pixel, Processors::RowOf<unsigned char>(frame, p.y) + std::ptrdiff_t{4} * p.x,
                sizeof pixel);
    return pixel == 0;
}

/// Moves a seed off a line; false where lines are all around.
bool FindStart(const CFrame& frame, IppiPoint& seed) {
    const int right = frame.m_nWidth - 1, bottom = frame.m_nHeight - 1;
    const IppiPoint choices[] = {seed,
                                 {std::max(seed.x - 1, 0), seed.y},
                                 {std::min(seed.x + 1, right), seed.y},
                                 {seed.x, std::max(seed.y - 1, 0)},
                                 {seed.x, std::min(seed.y + 1, bottom)}};
    const auto* found = std::find_if(std::begin(choices), std::end(choices),
                                     [&](IppiPoint p) { return !IsBlank(frame, p); });
    if (found == std::end(choices)) return false;
    seed = *found;
    return true;
}

/// The colours lie together from the byte `colors` on; `bytesOf` puts a point's colour in their
/// order.
template <class BytesOf>
void FloodFill(CFrame& frame, int colors, BytesOf bytesOf, const FillPoint* points, int count,
               MemoryAllocator* allocator) {
    const IppiSize size = Processors::SizeOf(frame);
    CFrame image;
    if (!image.Init(size.width, size.height, 3, allocator, frame.m_pfPixelFormat, false)) return;
    const Buffer buffer = FillBuffer(size);
    if (!buffer) return;
    std::uint8_t* const pixels = frame.m_pBuffer + colors;
    if (ippiCopy_8u_AC4C3R(pixels, frame.m_nByteSpan, image.m_pBuffer, image.m_nByteSpan, size) !=
        kStatusOk)
        return;
    for (const FillPoint* point = points; point != points + count; ++point) {
        IppiPoint seed = {point->x, point->y};
        if (!FindStart(frame, seed)) continue;
        std::uint8_t bytes[3];
        bytesOf(point->color, bytes);
        IppiFilledRegion region;
        ippiFloodFill_4Con_8u_C3IR(image.m_pBuffer, image.m_nByteSpan, size, seed, bytes, &region,
                                   buffer.get());
    }
    ippiCopy_8u_C3AC4R(image.m_pBuffer, image.m_nByteSpan, pixels, frame.m_nByteSpan, size);
}

}  // namespace

void FloodFillBGRA8(CFrame* frame, const FillPoint* points, int count, unsigned int,
                    MemoryAllocator* allocator) {
    const auto blueFirst = [](std::uint32_t color, std::uint8_t* bytes) {
        for (int i = 0; i < 3; ++i) bytes[i] = static_cast<std::uint8_t>(color >> 8 * (2 - i));
    };
    FloodFill(*frame, 0, blueFirst, points, count, allocator);
}

void FloodFillARGB8(CFrame* frame, const FillPoint* points, int count, unsigned int,
                    MemoryAllocator* allocator) {
    const auto redFirst = [](std::uint32_t color, std::uint8_t* bytes) {
        for (int i = 0; i < 3; ++i) bytes[i] = static_cast<std::uint8_t>(color >> 8 * i);
    };
    FloodFill(*frame, 1, redFirst, points, count, allocator);
}

}  // namespace brushworks
