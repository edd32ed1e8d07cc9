#include "processors/mix.h"

#include <limits>

#include "frames/truncate.h"
#include "processors/pixels.h"

namespace brushworks::Processors {
namespace {

float CutWeight(float w) {
    return w > 0.0f ? std::min(w, 1.0f) : 0.0f;
}

int ByteWeight(float w) {
    return std::clamp(Truncate(w * 255.0f + 0.5f), 0, 255);
}

template <class Pixel>
bool MixFrames(const CFrame& a, const CFrame& b, const CFrame& dst, float wa, float wb) {
    const IppiSize size = CommonSize(a, b, dst);
    if (IsEmpty(size)) return true;
    return CMix().Process(Samples<const Pixel>(a), Samples<const Pixel>(b), Samples<Pixel>(dst),
                          static_cast<unsigned int>(size.width),
                          static_cast<unsigned int>(size.height), wa, wb, a.m_nPixelSpan,
                          b.m_nPixelSpan, dst.m_nPixelSpan);
}

}  // namespace

template <class Pixel>
bool CMix::Process(const Pixel* a, const Pixel* b, Pixel* dst, unsigned int width,
                   unsigned int height, float wa, float wb, int spanA, int spanB, int spanDst) {
    const IppiSize pixels = SizeOf(width, height);
    if (pixels.width > std::numeric_limits<int>::max() / kSamplesOf<Pixel>) return false;
    const IppiSize size = {pixels.width * kSamplesOf<Pixel>, pixels.height};
    const int stepA = StepOf<Pixel>(spanA), stepB = StepOf<Pixel>(spanB);
    const int stepDst = StepOf<Pixel>(spanDst);
    if constexpr (std::is_same_v<ComponentOf<Pixel>, float>) {
        wa = CutWeight(wa);
        wb = CutWeight(wb);
        const float most = wa + wb > 1.0f ? 1.0f : std::numeric_limits<float>::infinity();
        return MixFloats_C1R(Components(a), stepA, Components(b), stepB, Components(dst), stepDst,
                             size, wa, wb, most) == kStatusOk;
    } else {
        // Quotients of weights that add up to at most 255 never reach the cut of the primitive.
        return MixBytes_C1R(Components(a), stepA, Components(b), stepB, Components(dst), stepDst,
                            size, ByteWeight(wa), ByteWeight(wb)) == kStatusOk;
    }
}

bool CMix::Process(CFrame* a, CFrame* b, CFrame* dst, float wa, float wb) {
    switch (a->m_pfPixelFormat) {
        case PixelFormatBGRA8:
        case PixelFormatARGB8:  // the order of samples does not matter here
            return MixFrames<VideoSample>(*a, *b, *dst, wa, wb);
        case PixelFormatBGRA32f:
        case PixelFormatARGB32f:
            return MixFrames<VideoSampleFloat>(*a, *b, *dst, wa, wb);
        case PixelFormatMono8:
            return MixFrames<std::uint8_t>(*a, *b, *dst, wa, wb);
        case PixelFormatMono32f:
            return MixFrames<float>(*a, *b, *dst, wa, wb);
        default:
            return false;
    }
}

template bool CMix::Process(const VideoSample*, const VideoSample*, VideoSample*, unsigned int,
                            unsigned int, float, float, int, int, int);
template bool CMix::Process(const VideoSampleSwapped*, const VideoSampleSwapped*,
                            VideoSampleSwapped*, unsigned int, unsigned int, float, float, int, int,
                            int);
template bool CMix::Process(const VideoSampleFloat*, const VideoSampleFloat*, VideoSampleFloat*,
                            unsigned int, unsigned int, float, float, int, int, int);
template bool CMix::Process(const VideoSampleSwappedFloat*, const VideoSampleSwappedFloat*,
                            VideoSampleSwappedFloat*, unsigned int, unsigned int, float, float, int,
                            int, int);
template bool CMix::Process(const std::uint8_t*, const std::uint8_t*, std::uint8_t*, unsigned int,
                            unsigned int, float, float, int, int, int);
template bool CMix::Process(const float*, const float*, float*, unsigned int, unsigned int, float,
                            float, int, int, int);

}  // namespace brushworks::Processors
