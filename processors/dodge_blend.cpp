#include "processors/dodge_blend.h"

#include "processors/pixels.h"

namespace brushworks::Processors {
namespace {

template <class Pixel>
bool DodgeFrames(const CFrame& base, const CFrame& blend, const CFrame& dst, bool mono) {
    const IppiSize size = CommonSize(base, blend, dst);
    return CDodgeBlend().Process(Samples<const Pixel>(base), Samples<const Pixel>(blend),
                                 Samples<Pixel>(dst), static_cast<unsigned int>(size.width),
                                 static_cast<unsigned int>(size.height), mono, base.m_nPixelSpan,
                                 blend.m_nPixelSpan, dst.m_nPixelSpan);
}

}  // namespace

template <class Pixel>
bool CDodgeBlend::Process(const Pixel* base, const Pixel* blend, Pixel* dst, unsigned int width,
                          unsigned int height, bool mono, int spanBase, int spanBlend,
                          int spanDst) {
    const auto run = [&](auto* dodge) {
        return dodge(Components(base), StepOf<Pixel>(spanBase), Components(blend),
                     StepOf<Pixel>(spanBlend), Components(dst), StepOf<Pixel>(spanDst),
                     SizeOf(width, height), kAlphaOf<Pixel>) == kStatusOk;
    };
    if constexpr (std::is_same_v<ComponentOf<Pixel>, float>)
        return run(mono ? DodgeFloatsMono_C4R : DodgeFloats_C4R);
    else
        return run(mono ? DodgeBytesMono_C4R : DodgeBytes_C4R);
}

bool CDodgeBlend::Process(CFrame* base, CFrame* blend, CFrame* dst, bool mono) {
    if (!base || !blend || !dst || !base->m_pBuffer || !blend->m_pBuffer || !dst->m_pBuffer)
        return false;
    const IppiSize size = CommonSize(*base, *blend, *dst);
    const PixelFormat format = base->m_pfPixelFormat;
    const bool isPlane = base->m_nDepth == 1 || format == PixelFormatMono8;
    if (IsEmpty(size)) return isPlane || IsByteColor(*base) || IsFloatColor(*base);
    switch (format) {
        case PixelFormatBGRA8:
            return DodgeFrames<VideoSample>(*base, *blend, *dst, mono);
        case PixelFormatARGB8:
            return DodgeFrames<VideoSampleSwapped>(*base, *blend, *dst, mono);
        case PixelFormatBGRA32f:
            return DodgeFrames<VideoSampleFloat>(*base, *blend, *dst, mono);
        case PixelFormatARGB32f:
            return DodgeFrames<VideoSampleSwappedFloat>(*base, *blend, *dst, mono);
        default:
            return isPlane && DodgeBytes_C1R(base->m_pBuffer, base->m_nByteSpan, blend->m_pBuffer,
                                             blend->m_nByteSpan, dst->m_pBuffer, dst->m_nByteSpan,
                                             size) == kStatusOk;
    }
}

template bool CDodgeBlend::Process(const VideoSample*, const VideoSample*, VideoSample*,
                                   unsigned int, unsigned int, bool, int, int, int);
template bool CDodgeBlend::Process(const VideoSampleSwapped*, const VideoSampleSwapped*,
                                   VideoSampleSwapped*, unsigned int, unsigned int, bool, int, int,
                                   int);
template bool CDodgeBlend::Process(const VideoSampleFloat*, const VideoSampleFloat*,
                                   VideoSampleFloat*, unsigned int, unsigned int, bool, int, int,
                                   int);
template bool CDodgeBlend::Process(const VideoSampleSwappedFloat*, const VideoSampleSwappedFloat*,
                                   VideoSampleSwappedFloat*, unsigned int, unsigned int, bool, int,
                                   int, int);

}  // namespace brushworks::Processors
