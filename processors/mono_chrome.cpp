#include "processors/mono_chrome.h"

#include "primitives/tint.h"
#include "processors/pixels.h"

namespace brushworks::Processors {
namespace {

template <class Pixel>
bool TintFrames(const CFrame& src, const CFrame& dst, unsigned int color) {
    const IppiSize size = CommonSize(src, dst);
    if (IsEmpty(size)) return true;
    return CMonoChrome().Process(
        Samples<const Pixel>(src), Samples<Pixel>(dst), static_cast<unsigned int>(size.width),
        static_cast<unsigned int>(size.height), color, src.m_nPixelSpan, dst.m_nPixelSpan);
}

}  // namespace

template <class Pixel>
bool CMonoChrome::Process(const Pixel* src, Pixel* dst, unsigned int width, unsigned int height,
                          unsigned int color, int spanSrc, int spanDst) {
    const float tint[3] = {static_cast<float>(color & 255), static_cast<float>(color >> 8 & 255),
                           static_cast<float>(color >> 16 & 255)};
    const auto run = [&](auto* tintRows) {
        return tintRows(Components(src), StepOf<Pixel>(spanSrc), Components(dst),
                        StepOf<Pixel>(spanDst), SizeOf(width, height), tint,
                        kAlphaOf<Pixel>) == kStatusOk;
    };
    if constexpr (std::is_same_v<ComponentOf<Pixel>, float>)
        return run(TintFloats_C4R);
    else
        return run(TintBytes_C4R);
}

bool CMonoChrome::Process(CFrame* src, CFrame* dst, unsigned int color) {
    switch (src->m_pfPixelFormat) {
        case PixelFormatBGRA8:
            return TintFrames<VideoSample>(*src, *dst, color);
        case PixelFormatARGB8:
            return TintFrames<VideoSampleSwapped>(*src, *dst, color);
        case PixelFormatBGRA32f:
            return TintFrames<VideoSampleFloat>(*src, *dst, color);
        case PixelFormatARGB32f:
            return TintFrames<VideoSampleSwappedFloat>(*src, *dst, color);
        default:
            return false;
    }
}

template bool CMonoChrome::Process(const VideoSample*, VideoSample*, unsigned int, unsigned int,
                                   unsigned int, int, int);
template bool CMonoChrome::Process(const VideoSampleSwapped*, VideoSampleSwapped*, unsigned int,
                                   unsigned int, unsigned int, int, int);
template bool CMonoChrome::Process(const VideoSampleFloat*, VideoSampleFloat*, unsigned int,
                                   unsigned int, unsigned int, int, int);
template bool CMonoChrome::Process(const VideoSampleSwappedFloat*, VideoSampleSwappedFloat*,
                                   unsigned int, unsigned int, unsigned int, int, int);

}  // namespace brushworks::Processors
