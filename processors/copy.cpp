#include "processors/copy.h"

#include <algorithm>

#include "primitives/copy.h"
#include "processors/region.h"

namespace brushworks::Processors {

bool CCopy::Process(CFrame* src, CFrame* dst) {
    const IppiSize size = CommonSize(*src, *dst);
    if (IsFloatColor(*src))
        return ippiCopy_32f_C4R(Samples<float>(*src), src->m_nByteSpan, Samples<float>(*dst),
                                dst->m_nByteSpan, size) == kStatusOk;
    if (IsByteColor(*src))
        return ippiCopy_8u_C4R(src->m_pBuffer, src->m_nByteSpan, dst->m_pBuffer, dst->m_nByteSpan,
                               size) == kStatusOk;
    if (IsFloatPlane(*src))
        return ippiCopy_32f_C1R(Samples<float>(*src), src->m_nByteSpan, Samples<float>(*dst),
                                dst->m_nByteSpan, size) == kStatusOk;
    if (dst->m_nDepth == 1)
        return ippiCopy_8u_C1R(src->m_pBuffer, src->m_nByteSpan, dst->m_pBuffer, dst->m_nByteSpan,
                               size) == kStatusOk;
    return true;
}

bool CCopy::Process(CFrame* src, int x, int y, int w, int h, CFrame* dst, int dx, int dy) {
    auto clamp = [](int value, int most) { return std::max(0, std::min(value, most)); };
    x = clamp(x, src->m_nWidth);
    y = clamp(y, src->m_nHeight);
    dx = clamp(dx, dst->m_nWidth);
    dy = clamp(dy, dst->m_nHeight);
    const IppiSize size = {std::min({w, src->m_nWidth - x, dst->m_nWidth - dx}),
                           std::min({h, src->m_nHeight - y, dst->m_nHeight - dy})};
    if (size.width == 0 || size.height == 0) return true;
    if (src->m_nDepth != dst->m_nDepth) return false;

    auto at = [](const CFrame& frame, int column, int row) {
        return frame.m_pBuffer ? RowOf<unsigned char>(frame, row) +
                                     static_cast<std::ptrdiff_t>(column) * frame.m_nDepth
                               : nullptr;
    };
    unsigned char* from = at(*src, x, y);
    unsigned char* to = at(*dst, dx, dy);
    if (IsFloatColor(*src))
        return ippiCopy_32f_C4R(reinterpret_cast<float*>(from), src->m_nByteSpan,
                                reinterpret_cast<float*>(to), dst->m_nByteSpan, size) == kStatusOk;
    if (IsByteColor(*src))
        return ippiCopy_8u_C4R(from, src->m_nByteSpan, to, dst->m_nByteSpan, size) == kStatusOk;
    if (src->m_nDepth == 1)
        return ippiCopy_8u_C1R(from, src->m_nByteSpan, to, dst->m_nByteSpan, size) == kStatusOk;
    if (IsFloatPlane(*src))
        return ippiCopy_32f_C1R(reinterpret_cast<float*>(from), src->m_nByteSpan,
                                reinterpret_cast<float*>(to), dst->m_nByteSpan, size) == kStatusOk;
    return false;
}

}  // namespace brushworks::Processors
