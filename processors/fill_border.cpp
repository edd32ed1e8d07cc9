#include "processors/fill_border.h"

#include <cstring>

#include "primitives/border.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// The rectangle of the source whose pixels are spread.
struct Interior {
    int x, y;
    IppiSize size;

    unsigned char* DataIn(const CFrame& src) const {
        return RowOf<unsigned char>(src, y) + static_cast<std::ptrdiff_t>(x) * src.m_nDepth;
    }
};

/// What is spread, or nothing (a size of 0) where the margins leave no room for it.
Interior InteriorOf(const CFrame& src, const CFrame& dst, int left, int top) {
    const bool sameSize = src.m_nWidth == dst.m_nWidth && src.m_nHeight == dst.m_nHeight;
    const bool whole = src.m_pBuffer != dst.m_pBuffer && !sameSize;
    const long long width = whole ? src.m_nWidth : src.m_nWidth - 2LL * left;
    const long long height = whole ? src.m_nHeight : src.m_nHeight - 2LL * top;
    const bool fits = left >= 0 && top >= 0 && width > 0 && height > 0 &&
                      width + left <= dst.m_nWidth && height + top <= dst.m_nHeight;
    if (!fits) return {};
    return {whole ? 0 : left, whole ? 0 : top, {static_cast<int>(width), static_cast<int>(height)}};
}

/// Fills `count` pixels with the one at `pixel`.
template <int Channels>
void Repeat(const float* pixel, float* to, int count) {
    for (int x = 0; x < count; ++x)
        for (int c = 0; c < Channels; ++c) to[x * Channels + c] = pixel[c];
}

template <int Channels>
void Spread(const CFrame& src, const Interior& interior, CFrame& dst, int left, int top) {
    const int width = interior.size.width, height = interior.size.height;
    const unsigned char* data = interior.DataIn(src);
    for (int y = 0; y < height; ++y) {
        const auto* from =
            reinterpret_cast<const float*>(data + static_cast<std::ptrdiff_t>(y) * src.m_nByteSpan);
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
    if (IsByteColor(*src) || (src->m_nDepth == 1 && dst->m_nDepth == 1))
        return Process8u(src, dst, left, top);
    if (IsFloatColor(*src) || IsFloatPlane(*src)) return Process32f(src, dst, left, top);
    return false;
}

bool CFillBorder::Process8u(CFrame* src, CFrame* dst, int left, int top) {
    if (src->m_pfPixelFormat == PixelFormatBGRA32f || src->m_nDepth != dst->m_nDepth) return false;
    const Interior interior = InteriorOf(*src, *dst, left, top);
    if (interior.size.width == 0) return false;
    auto* spread = src->m_nDepth == 4   ? ippiCopyReplicateBorder_8u_C4R
                   : src->m_nDepth == 1 ? ippiCopyReplicateBorder_8u_C1R
                                        : nullptr;
    return spread && spread(interior.DataIn(*src), src->m_nByteSpan, interior.size, dst->m_pBuffer,
                            dst->m_nByteSpan, SizeOf(*dst), top, left) == kStatusOk;
}

bool CFillBorder::Process32f(CFrame* src, CFrame* dst, int left, int top) {
    if (src->m_nDepth != dst->m_nDepth) return false;
    const Interior interior = InteriorOf(*src, *dst, left, top);
    if (interior.size.width == 0) return false;
    if (src->m_nDepth == 16)
        Spread<4>(*src, interior, *dst, left, top);
    else if (src->m_nDepth == 4)
        Spread<1>(*src, interior, *dst, left, top);
    else
        return false;
    return true;
}

}  // namespace brushworks::Processors
