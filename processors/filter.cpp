#include "processors/filter.h"

#include <algorithm>

#include "primitives/filter_general.h"
#include "processors/copy.h"
#include "processors/region.h"

namespace brushworks::Processors {

bool CFilter::Process(CFrame* src, CFrame* dst, float* kernel, int size, bool toOrigin) {
    if (!src->m_pBuffer || !dst->m_pBuffer || size < 1 || src->m_nDepth != dst->m_nDepth)
        return false;
    const int h = size >> 1;
    const int corner = toOrigin ? 0 : h;
    const IppiSize region = {std::min(src->m_nWidth - 2 * h, dst->m_nWidth - corner),
                             std::min(src->m_nHeight - 2 * h, dst->m_nHeight - corner)};
    if (region.width < 1 || region.height < 1) return false;

    CFrame copy;
    if (src->m_pBuffer == dst->m_pBuffer) {
        if (!copy.Init(src->m_nWidth, src->m_nHeight, src->m_nDepth, nullptr, src->m_pfPixelFormat,
                       false) ||
            !CCopy().Process(src, &copy))
            return false;
        src = &copy;
    }
    const auto at = [](const CFrame& frame, int place) {
        return RowOf<unsigned char>(frame, place) +
               static_cast<std::ptrdiff_t>(place) * frame.m_nDepth;
    };
    const unsigned char* from = at(*src, h);
    unsigned char* to = at(*dst, corner);
    const IppiSize kernelSize = {size, size};
    const IppiPoint anchor = {h, h};
    if (IsFloatColor(*src) && src->m_nDepth == 16)
        return ippiFilter_32f_C4R(reinterpret_cast<const float*>(from), src->m_nByteSpan,
                                  reinterpret_cast<float*>(to), dst->m_nByteSpan, region, kernel,
                                  kernelSize, anchor) == kStatusOk;
    if (IsByteColor(*src) && src->m_nDepth == 4)
        return ippiFilter32f_8u_C4R(from, src->m_nByteSpan, to, dst->m_nByteSpan, region, kernel,
                                    kernelSize, anchor) == kStatusOk;
    if (src->m_nDepth == 1)
        return ippiFilter32f_8u_C1R(from, src->m_nByteSpan, to, dst->m_nByteSpan, region, kernel,
                                    kernelSize, anchor) == kStatusOk;
    return false;
}

}  // namespace brushworks::Processors
