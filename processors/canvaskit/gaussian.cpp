#include "processors/canvaskit/gaussian.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <memory>
#include <new>

#include "frames/memory_allocator.h"
#include "primitives/border.h"
#include "primitives/filter_general.h"
#include "processors/region.h"

namespace brushworks::Canvaskit {

bool CGuassian::BuildKernel(float sigma, bool halfHeight, float*& kernel, int& width, int& height) {
    constexpr float kLeastWeight = 0.01f;
    int i = 1;
    while (i < kLargestRadius &&
           std::exp(static_cast<float>(-(i * i)) / (2.0f * sigma * sigma)) > kLeastWeight)
        ++i;
    const int rx = i + 1;
    if (rx > kLargestRadius) return false;
    const int ry = std::max(halfHeight ? rx >> 1 : rx, 1);
    const float m = halfHeight ? 4.0f : 1.0f;
    width = 2 * rx + 1;
    height = 2 * ry + 1;
    kernel = new (std::nothrow) float[static_cast<std::size_t>(width) * height];
    if (!kernel) return false;
    float* to = kernel;
    for (int y = -ry; y <= ry; ++y)
        for (int x = -rx; x <= rx; ++x)
            *to++ = std::exp((static_cast<float>(x * x) + m * static_cast<float>(y * y)) /
                             (-2.0f * sigma * sigma));
    return true;
}

bool CGuassian::Process(CFrame& src, CFrame& dst, float sigma, bool halfHeight,
                        MemoryAllocator* allocator) {
    float* built = nullptr;
    IppiSize kernelSize;
    if (src.m_nDepth != dst.m_nDepth ||
        !BuildKernel(sigma, halfHeight, built, kernelSize.width, kernelSize.height))
        return false;
    const std::unique_ptr<float[]> kernel(built);

    const struct Primitives {
        int depth;
        decltype(&ippiCopyReplicateBorder_8u_C1R) widen;
        decltype(&ippiFilter32f_8u_C1R) filter;
    } kinds[] = {{3, ippiCopyReplicateBorder_8u_C3R, ippiFilter32f_8u_C3R},
                 {4, ippiCopyReplicateBorder_8u_C4R, ippiFilter32f_8u_C4R},
                 {1, ippiCopyReplicateBorder_8u_C1R, ippiFilter32f_8u_C1R}};
    const auto* kind = std::find_if(std::begin(kinds), std::end(kinds),
                                    [&](const Primitives& p) { return p.depth == src.m_nDepth; });
    if (kind == std::end(kinds)) return false;

    const IppiPoint half = {kernelSize.width / 2, kernelSize.height / 2};
    const IppiSize size = Processors::CommonSize(src, dst);
    constexpr int kMost = INT_MAX - 2 * kLargestRadius;
    if (size.width < 1 || size.height < 1 || size.width > kMost || size.height > kMost)
        return false;
    CFrame widened;
    if (!widened.Init(size.width + 2 * half.x, size.height + 2 * half.y, src.m_nDepth, allocator,
                      src.m_pfPixelFormat, false))
        return false;
    if (kind->widen(src.m_pBuffer, src.m_nByteSpan, size, widened.m_pBuffer, widened.m_nByteSpan,
                    Processors::SizeOf(widened), half.y, half.x) != kStatusOk)
        return false;
    const unsigned char* corner = Processors::RowOf<unsigned char>(widened, half.y) +
                                  static_cast<std::ptrdiff_t>(half.x) * src.m_nDepth;
    return kind->filter(corner, widened.m_nByteSpan, dst.m_pBuffer, dst.m_nByteSpan, size,
                        kernel.get(), kernelSize, half) == kStatusOk;
}

}  // namespace brushworks::Canvaskit
