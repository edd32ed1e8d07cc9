#include "processors/alpha_fade.h"

#include "primitives/tint.h"
#include "processors/pixels.h"

namespace brushworks::Processors {
namespace {

/// A fade from here on makes any alpha above 0 full.
constexpr int kFullFade = 65536;

template <class Pixel>
bool FadeFrames(const CFrame& src, const CFrame& dst, int fade) {
    const IppiSize size = CommonSize(src, dst);
    // Planes of bytes hold fewer of these pixels in a row than their width says, and their spans
    // count other pixels.
    const auto inRow = [](const CFrame& frame, int width) {
        return static_cast<int>(std::int64_t{width} * std::min<int>(frame.m_nDepth, sizeof(Pixel)) /
                                int{sizeof(Pixel)});
    };
    const int width = std::min(inRow(src, size.width), inRow(dst, size.width));
    if (width < 1 || size.height < 1) return true;
    return CAlphaFade().Process(
        Samples<const Pixel>(src), Samples<Pixel>(dst), static_cast<unsigned int>(width),
        static_cast<unsigned int>(size.height), fade, src.m_nByteSpan / int{sizeof(Pixel)},
        dst.m_nByteSpan / int{sizeof(Pixel)});
}

}  // namespace

template <class Pixel>
bool CAlphaFade::Process(const Pixel* src, Pixel* dst, unsigned int width, unsigned int height,
                         int fade, int spanSrc, int spanDst) {
    const IppiSize size = SizeOf(width, height), row = {size.width, 1};
    const int step = StepOf<Pixel>(size.width);
    // Row by row, since any spans are served.
    for (std::ptrdiff_t y = 0; y < size.height; ++y) {
        const auto* from = Components(src + y * spanSrc);
        auto* to = Components(dst + y * spanDst);
        if constexpr (std::is_same_v<ComponentOf<Pixel>, float>)
            FadeFloats_C4R(from, step, to, step, row, static_cast<float>(fade), kAlphaOf<Pixel>);
        else
            FadeBytes_C4R(from, step, to, step, row, std::clamp(fade, 0, kFullFade),
                          kAlphaOf<Pixel>);
    }
    return true;
}

bool CAlphaFade::Process(CFrame* src, CFrame* dst, int fade) {
    switch (src->m_pfPixelFormat) {
        case PixelFormatARGB8:
            return FadeFrames<VideoSampleSwapped>(*src, *dst, fade);
        case PixelFormatBGRA32f:
            return FadeFrames<VideoSampleFloat>(*src, *dst, fade);
        case PixelFormatARGB32f:
            return FadeFrames<VideoSampleSwappedFloat>(*src, *dst, fade);
        default:
            return FadeFrames<VideoSample>(*src, *dst, fade);
    }
}

template bool CAlphaFade::Process(const VideoSample*, VideoSample*, unsigned int, unsigned int, int,
                                  int, int);
template bool CAlphaFade::Process(const VideoSampleSwapped*, VideoSampleSwapped*, unsigned int,
                                  unsigned int, int, int, int);
template bool CAlphaFade::Process(const VideoSampleFloat*, VideoSampleFloat*, unsigned int,
                                  unsigned int, int, int, int);
template bool CAlphaFade::Process(const VideoSampleSwappedFloat*, VideoSampleSwappedFloat*,
                                  unsigned int, unsigned int, int, int, int);

}  // namespace brushworks::Processors
