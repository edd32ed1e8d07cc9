#include "processors/canvaskit/gray.h"

#include "primitives/arithmetic.h"
#include "primitives/copy.h"
#include "primitives/gray.h"
#include "primitives/set.h"
#include "processors/region.h"

namespace brushworks::Canvaskit {

using Processors::CommonSize;
using Processors::SizeOf;

bool CRGBToGray::Process(CFrame& src, CFrame& dst) {
    if ((src.m_nDepth != 3 && src.m_nDepth != 4) || dst.m_nDepth != 1) return false;
    auto* convert = src.m_nDepth == 3 ? ippiRGBToGray_8u_C3C1R : ippiRGBToGray_8u_AC4C1R;
    return convert(src.m_pBuffer, src.m_nByteSpan, dst.m_pBuffer, dst.m_nByteSpan,
                   CommonSize(src, dst)) == kStatusOk;
}

bool CGrayToRGB::Process(CFrame& src, CFrame& dst) {
    if ((dst.m_nDepth != 3 && dst.m_nDepth != 4) || src.m_nDepth != 1) return false;
    if (!src.m_pBuffer || !dst.m_pBuffer) return false;
    const IppiSize size = CommonSize(src, dst);
    auto* insert = dst.m_nDepth == 3 ? ippiCopy_8u_C1C3R : ippiCopy_8u_C1C4R;
    int status = kStatusOk;
    for (int channel = 0; channel < 3; ++channel)
        status =
            insert(src.m_pBuffer, src.m_nByteSpan, dst.m_pBuffer + channel, dst.m_nByteSpan, size);
    if (dst.m_nDepth == 4) status = ippiSet_8u_C4CR(255, dst.m_pBuffer + 3, dst.m_nByteSpan, size);
    return status == kStatusOk;
}

bool CNegate::Process(CFrame& frame) {
    return ippiNot_8u_C1IR(frame.m_pBuffer, frame.m_nByteSpan, SizeOf(frame)) == kStatusOk;
}

}  // namespace brushworks::Canvaskit
