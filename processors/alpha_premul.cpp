#include "processors/alpha_premul.h"

#include "primitives/alpha.h"
#include "primitives/tint.h"
#include "processors/pixels.h"

namespace brushworks::Processors {
namespace {

template <class Pixel>
bool PremultiplyFrames(const CFrame& src, const CFrame& dst) {
    const IppiSize size = CommonSize(src, dst);
    if (IsEmpty(size)) return true;
    return CAlphaPremul().Process(
        Samples<const Pixel>(src), Samples<Pixel>(dst), static_cast<unsigned int>(size.width),
        static_cast<unsigned int>(size.height), src.m_nPixelSpan, dst.m_nPixelSpan);
}

}  // namespace

template <class Pixel>
bool CAlphaPremul::Process(const Pixel* src, Pixel* dst, unsigned int width, unsigned int height,
                           int spanSrc, int spanDst) {
    const auto* from = Components(src);
    auto* to = Components(dst);
    const int fromStep = StepOf<Pixel>(spanSrc), toStep = StepOf<Pixel>(spanDst);
    const IppiSize size = SizeOf(width, height);
    if constexpr (std::is_same_v<Pixel, VideoSample>)
        return ippiAlphaPremul_8u_AC4R(from, fromStep, to, toStep, size) == kStatusOk;
    else if constexpr (std::is_same_v<Pixel, VideoSampleSwapped>)
        return PremultiplyBytes_A4R(from, fromStep, to, toStep, size) == kStatusOk;
    else
        return PremultiplyFloats_C4R(from, fromStep, to, toStep, size, kAlphaOf<Pixel>) ==
               kStatusOk;
}

bool CAlphaPremul::Process(CFrame& src, CFrame& dst) {
    switch (src.m_pfPixelFormat) {
        case PixelFormatBGRA8:
            return PremultiplyFrames<VideoSample>(src, dst);
        case PixelFormatARGB8:
            return PremultiplyFrames<VideoSampleSwapped>(src, dst);
        case PixelFormatBGRA32f:
            return PremultiplyFrames<VideoSampleFloat>(src, dst);
        case PixelFormatARGB32f:
            return PremultiplyFrames<VideoSampleSwappedFloat>(src, dst);
        default:
            return false;
    }
}

template bool CAlphaPremul::Process(const VideoSample*, VideoSample*, unsigned int, unsigned int,
                                    int, int);
template bool CAlphaPremul::Process(const VideoSampleSwapped*, VideoSampleSwapped*, unsigned int,
                                    unsigned int, int, int);
template bool CAlphaPremul::Process(const VideoSampleFloat*, VideoSampleFloat*, unsigned int,
                                    unsigned int, int, int);
template bool CAlphaPremul::Process(const VideoSampleSwappedFloat*, VideoSampleSwappedFloat*,
                                    unsigned int, unsigned int, int, int);

}  // namespace brushworks::Processors
