#include "processors/alpha_blend.h"

#include "primitives/alpha.h"
#include "processors/pixels.h"

namespace brushworks::Processors {
namespace {

template <class Pixel>
bool BlendFrames(const FrameParams& fg, const FrameParams& bg, const FrameParams& dst,
                 IppiSize size, bool premultiplied) {
    const auto span = [](const FrameParams& frame) { return frame.nByteSpan / frame.nDepth; };
    return CAlphaBlend().Process(
        reinterpret_cast<const Pixel*>(fg.pBuffer), reinterpret_cast<const Pixel*>(bg.pBuffer),
        reinterpret_cast<Pixel*>(dst.pBuffer), static_cast<unsigned int>(size.width),
        static_cast<unsigned int>(size.height), premultiplied, span(fg), span(bg), span(dst));
}

/// One row of a pixel type.
template <class Pixel>
int BlendRow(const Pixel* fg, const Pixel* bg, Pixel* dst, int width, bool premultiplied) {
    const IppiSize row = {width, 1};
    const int step = StepOf<Pixel>(width);
    const auto* f = Components(fg);
    const auto* b = Components(bg);
    auto* to = Components(dst);
    if constexpr (std::is_same_v<ComponentOf<Pixel>, float>)
        return (premultiplied ? OverFloatsPremultiplied_C4R : OverFloats_C4R)(
            f, step, b, step, to, step, row, kAlphaOf<Pixel>);
    else
        return (premultiplied ? OverBytesPremultiplied_A4R : OverBytes_A4R)(f, step, b, step, to,
                                                                            step, row);
}

}  // namespace

template <class Pixel>
bool CAlphaBlend::Process(const Pixel* fg, const Pixel* bg, Pixel* dst, unsigned int width,
                          unsigned int height, bool premultiplied, int spanFg, int spanBg,
                          int spanDst) {
    const IppiSize size = SizeOf(width, height);
    if constexpr (std::is_same_v<Pixel, VideoSample>)
        return ippiAlphaComp_8u_AC4R(Components(fg), StepOf<Pixel>(spanFg), Components(bg),
                                     StepOf<Pixel>(spanBg), Components(dst), StepOf<Pixel>(spanDst),
                                     size, premultiplied ? kAlphaOverPremultiplied : kAlphaOver) ==
               kStatusOk;
    else {
        if (!fg || !bg || !dst) return false;
        for (std::ptrdiff_t y = 0; y < size.height && size.width > 0; ++y)
            if (BlendRow(fg + y * spanFg, bg + y * spanBg, dst + y * spanDst, size.width,
                         premultiplied) != kStatusOk)
                return false;
        return true;
    }
}

bool CAlphaBlend::Process(const FrameParams& fg, const FrameParams& bg, FrameParams& dst,
                          bool premultiplied) {
    const auto span = [](const FrameParams& frame) {
        return frame.nDepth > 0 ? frame.nByteSpan / frame.nDepth : 0;
    };
    if (span(fg) <= 0 || span(bg) <= 0 || span(dst) == 0) return false;
    const IppiSize size = {std::min({fg.nWidth, bg.nWidth, dst.nWidth}),
                           std::min({fg.nHeight, bg.nHeight, dst.nHeight})};
    if (size.width < 0 || size.height < 0) return false;
    switch (fg.pfPixelFormat) {
        case PixelFormatBGRA8:
            return BlendFrames<VideoSample>(fg, bg, dst, size, premultiplied);
        case PixelFormatARGB8:
            return BlendFrames<VideoSampleSwapped>(fg, bg, dst, size, premultiplied);
        case PixelFormatBGRA32f:
            return BlendFrames<VideoSampleFloat>(fg, bg, dst, size, premultiplied);
        case PixelFormatARGB32f:
            return BlendFrames<VideoSampleSwappedFloat>(fg, bg, dst, size, premultiplied);
        default:
            return false;
    }
}

bool CAlphaBlend::Process(CFrame* fg, CFrame* bg, CFrame* dst, bool premultiplied) {
    FrameParams to = dst->GetFrameParams();
    return Process(fg->GetFrameParams(), bg->GetFrameParams(), to, premultiplied);
}

template bool CAlphaBlend::Process(const VideoSample*, const VideoSample*, VideoSample*,
                                   unsigned int, unsigned int, bool, int, int, int);
template bool CAlphaBlend::Process(const VideoSampleSwapped*, const VideoSampleSwapped*,
                                   VideoSampleSwapped*, unsigned int, unsigned int, bool, int, int,
                                   int);
template bool CAlphaBlend::Process(const VideoSampleFloat*, const VideoSampleFloat*,
                                   VideoSampleFloat*, unsigned int, unsigned int, bool, int, int,
                                   int);
template bool CAlphaBlend::Process(const VideoSampleSwappedFloat*, const VideoSampleSwappedFloat*,
                                   VideoSampleSwappedFloat*, unsigned int, unsigned int, bool, int,
                                   int, int);

}  // namespace brushworks::Processors
