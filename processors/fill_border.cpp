#include "processors/fill_border.h"

#include <algorithm>
#include <cstring>

#include "primitives/border.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// Where the pixels that are spread come from.
struct Interior {
    unsigned char* data;
    IppiSize size;
};

Interior InteriorOf(const CFrame& src, const CFrame& dst, int left, int top) {
    const bool sameSize = src.m_nWidth == dst.m_nWidth && src.m_nHeight == dst.m_nHeight;
    if (src.m_pBuffer != dst.m_pBuffer && !sameSize) return {src.m_pBuffer, SizeOf(src)};
    return {
        RowOf<unsigned char>(src, top) + static_cast<std::ptrdiff_t>(left) * src.m_nDepth,
        {static_cast<int>(src.m_nWidth - 2LL * left), static_cast<int>(src.m_nHeight - 2LL * top)}};
}

/// The margins are sane and leave room for the interior.
bool Fits(const Interior& interior, const CFrame& dst, int left, int top) {
    return interior.size.width > 0 && interior.size.height > 0 &&
           static_cast<long long>(interior.size.width) + left <= dst.m_nWidth &&
           static_cast<long long>(interior.size.height) + top <= dst.m_nHeight;
}

/// Fills `count` pixels with the one at `pixel`.
template <int Channels>
void Repeat(const float* pixel, float* to, int count) {
    for (int x = 0; x < count; ++x)
        for (int c = 0; c < Channels; ++c) to[x * Channels + c] = pixel[c];
}

template <int Channels>
void Spread(const Interior& interior, int srcByteSpan, CFrame& dst, int left, int top) {
    const int width = interior.size.width, height = interior.size.height;
    for (int y = 0; y < height; ++y) {
        const auto* from = reinterpret_cast<const float*>(
            interior.data + static_cast<std::ptrdiff_t>(y) * srcByteSpan);
        float* to = RowOf<float>(dst, top + y);
        float* centre = to + static_cast<std::ptrdiff_t>(left) * Channels;
        float* right = centre + static_cast<std::ptrdiff_t>(width) * Channels;
        std::memmove(centre, from, sizeof(float) * Channels * width);
        Repeat<Channels>(centre, to, left);
        Repeat<Channels>(right - Channels, right, dst.m_nWidth - left - width);
    }
    const std::size_t rowBytes = sizeof(float) * Channels * dst.m_nWidth;
    for (int y = 0; y < top; ++y)
        std::memcpy(RowOf<float>(dst, y), RowOf<float>(dst, top), rowBytes);
    for (int y = top + height; y < dst.m_nHeight; ++y)
        std::memcpy(RowOf<float>(dst, y), RowOf<float>(dst, top + height - 1), rowBytes);
}

}  // namespace

bool CFillBorder::Process(CFrame* src, CFrame* dst, int left, int top) {
    if (!src || !dst || !src->m_pBuffer || !dst->m_pBuffer) return false;
    if (IsByteColor(*src)) return Process8u(src, dst, left, top);
    if (IsFloatColor(*src) || IsFloatPlane(*src)) return Process32f(src, dst, left, top);
    if (src->m_nDepth == 1 && dst->m_nDepth == 1) return Process8u(src, dst, left, top);
    return false;
}

bool CFillBorder::Process8u(CFrame* src, CFrame* dst, int left, int top) {
    if (src->m_pfPixelFormat == PixelFormatBGRA32f || left < 0 || top < 0) return false;
    const Interior interior = InteriorOf(*src, *dst, left, top);
    if (!Fits(interior, *dst, left, top)) return false;
    if (src->m_nDepth == 4 && dst->m_nDepth == 4)
        return ippiCopyReplicateBorder_8u_C4R(interior.data, src->m_nByteSpan, interior.size,
                                              dst->m_pBuffer, dst->m_nByteSpan, SizeOf(*dst), top,
                                              left) == kStatusOk;
    if (src->m_nDepth == 1 && dst->m_nDepth == 1)
        return ippiCopyReplicateBorder_8u_C1R(interior.data, src->m_nByteSpan, interior.size,
                                              dst->m_pBuffer, dst->m_nByteSpan, SizeOf(*dst), top,
                                              left) == kStatusOk;
    return false;
}

bool CFillBorder::Process32f(CFrame* src, CFrame* dst, int left, int top) {
    if (src->m_nDepth != dst->m_nDepth || left < 0 || top < 0) return false;
    const Interior interior = InteriorOf(*src, *dst, left, top);
    if (!Fits(interior, *dst, left, top)) return false;
    if (src->m_nDepth == 16)
        Spread<4>(interior, src->m_nByteSpan, *dst, left, top);
    else if (src->m_nDepth == 4)
        Spread<1>(interior, src->m_nByteSpan, *dst, left, top);
    else
        return false;
    return true;
}

}  // namespace brushworks::Processors
