#include "processors/copy_plane.h"

#include "primitives/copy.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// The copies between four channels and one, for one sample type.
template <class Sample>
struct PlaneCopies {
    using Copy = int(const Sample*, int, Sample*, int, IppiSize);
    Copy* fourToOne;
    Copy* oneToFour;
    Copy* fourToFour;
};

template <class Sample>
bool CopyPlane(const PlaneCopies<Sample>& copies, CFrame& src, CFrame& dst, int srcPlane,
               int dstPlane) {
    constexpr int kOne = sizeof(Sample);
    constexpr int kFour = 4 * kOne;
    const bool fromFour = src.m_nDepth == kFour, toFour = dst.m_nDepth == kFour;
    if (!(fromFour || src.m_nDepth == kOne) || !(toFour || dst.m_nDepth == kOne)) return false;
    if (!fromFour && !toFour) return false;
    if ((fromFour && (srcPlane < 0 || srcPlane > 3)) || (toFour && (dstPlane < 0 || dstPlane > 3)))
        return false;
    if (!src.m_pBuffer || !dst.m_pBuffer) return false;
    const Sample* from = Samples<Sample>(src) + (fromFour ? srcPlane : 0);
    Sample* to = Samples<Sample>(dst) + (toFour ? dstPlane : 0);
    auto* copy = !toFour ? copies.fourToOne : !fromFour ? copies.oneToFour : copies.fourToFour;
    return copy(from, src.m_nByteSpan, to, dst.m_nByteSpan, CommonSize(src, dst)) == kStatusOk;
}

}  // namespace

bool CCopyPlane::Process(CFrame* src, CFrame* dst, int srcPlane, int dstPlane) {
    if (IsFloatColor(*src) || IsFloatPlane(*src))
        return CopyPlane<float>({ippiCopy_32f_C4C1R, ippiCopy_32f_C1C4R, ippiCopy_32f_C4CR}, *src,
                                *dst, srcPlane, dstPlane);
    if (IsByteColor(*src) || src->m_pfPixelFormat == PixelFormatMono8 || src->m_nDepth == 1)
        return CopyPlane<unsigned char>({ippiCopy_8u_C4C1R, ippiCopy_8u_C1C4R, ippiCopy_8u_C4CR},
                                        *src, *dst, srcPlane, dstPlane);
    return false;
}

}  // namespace brushworks::Processors
