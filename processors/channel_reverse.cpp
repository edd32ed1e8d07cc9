#include "processors/channel_reverse.h"

#include "primitives/swap.h"
#include "processors/region.h"

namespace brushworks::Processors {

bool CChannelReverse::Process(CFrame* src, CFrame* dst) {
    if (!src || !dst || !src->m_pBuffer || !dst->m_pBuffer) return false;
    if (IsByteColor(*src)) return Process8u(src, dst);
    if (IsFloatColor(*src)) return Process32f(src, dst);
    return false;
}

bool CChannelReverse::Process8u(CFrame* src, CFrame* dst) {
    if (src->m_pBuffer == dst->m_pBuffer) {
        unsigned int order[4] = {3, 2, 1, 0};
        Process8u(dst, order);
        return true;
    }
    ReverseBytes_C4R(src->m_pBuffer, src->m_nByteSpan, dst->m_pBuffer, dst->m_nByteSpan,
                     CommonSize(*src, *dst));
    return true;
}

bool CChannelReverse::Process32f(CFrame* src, CFrame* dst) {
    const IppiSize size = CommonSize(*src, *dst);
    for (int y = 0; y < size.height; ++y) {
        const float* from = RowOf<const float>(*src, y);
        float* to = RowOf<float>(*dst, y);
        for (int x = 0; x < size.width; ++x, from += 4, to += 4) {
            const float s0 = from[0], s1 = from[1], s2 = from[2], s3 = from[3];
            to[0] = s3;
            to[1] = s2;
            to[2] = s1;
            to[3] = s0;
        }
    }
    return true;
}

bool CChannelReverse::Process(CFrame* frame, unsigned int* order) {
    if (IsByteColor(*frame)) return Process8u(frame, order);
    if (!IsFloatColor(*frame) || !frame->m_pBuffer) return false;
    for (int k = 0; k < 4; ++k)
        if (order[k] > 3) return false;
    for (int y = 0; y < frame->m_nHeight; ++y) {
        float* pixel = RowOf<float>(*frame, y);
        for (int x = 0; x < frame->m_nWidth; ++x, pixel += 4) {
            const float old[4] = {pixel[0], pixel[1], pixel[2], pixel[3]};
            for (int k = 0; k < 4; ++k) pixel[k] = old[order[k]];
        }
    }
    return false;
}

bool CChannelReverse::Process8u(CFrame* frame, unsigned int* order) {
    if (!frame || !frame->m_pBuffer) return false;
    int signedOrder[4];
    for (int k = 0; k < 4; ++k) signedOrder[k] = order[k] > 3 ? -1 : static_cast<int>(order[k]);
    return ippiSwapChannels_8u_C4IR(frame->m_pBuffer, frame->m_nByteSpan, SizeOf(*frame),
                                    signedOrder) == kStatusOk;
}

}  // namespace brushworks::Processors
