#include "processors/rgb_hsv.h"

#include "primitives/hsv.h"
#include "primitives/hsva.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

template <class Sample, class Convert, class... Further>
bool Run(Convert* convert, const CFrame& src, const CFrame& dst, Further... further) {
    const IppiSize size = CommonSize(src, dst);
    if (size.width < 1 || size.height < 1) return true;
    return convert(Samples<const Sample>(src), src.m_nByteSpan, Samples<Sample>(dst),
                   dst.m_nByteSpan, size, further...) == kStatusOk;
}

template <class Pixel>
HSVA OfPixel(const Pixel& pixel, AlphaAt alpha) {
    HSVA result{};
    HsvaFromFloats_C4R(reinterpret_cast<const float*>(&pixel), sizeof pixel,
                       reinterpret_cast<float*>(&result), sizeof result, {1, 1}, alpha);
    return result;
}

}  // namespace

HSVA CRGBToHSV::HSVAFromBGRA(const VideoSampleFloat& sample) {
    return OfPixel(sample, AlphaAt::kLast);
}

HSVA CRGBToHSV::HSVAFromARGB(const VideoSampleSwappedFloat& sample) {
    return OfPixel(sample, AlphaAt::kFirst);
}

bool CRGBToHSV::Process(CFrame* src, CFrame* dst) {
    switch (src->m_pfPixelFormat) {
        case PixelFormatBGRA8:
            return Run<std::uint8_t>(HsvFromBytes_C4R, *src, *dst);
        case PixelFormatARGB8:
            return Run<std::uint8_t>(HsvaFromBytes_A4R, *src, *dst);
        case PixelFormatBGRA32f:
            return Run<float>(HsvaFromFloats_C4R, *src, *dst, AlphaAt::kLast);
        case PixelFormatARGB32f:
            return Run<float>(HsvaFromFloats_C4R, *src, *dst, AlphaAt::kFirst);
        default:
            return false;
    }
}

bool CHSVToRGB::Process(CFrame* src, CFrame* dst) {
    switch (dst->m_pfPixelFormat) {
        case PixelFormatBGRA8:
            return Run<std::uint8_t>(BytesFromHsv_C4R, *src, *dst);
        case PixelFormatARGB8:
            return Run<std::uint8_t>(BytesFromHsva_A4R, *src, *dst);
        case PixelFormatBGRA32f:
            return Run<float>(FloatsFromHsva_C4R, *src, *dst, AlphaAt::kLast);
        case PixelFormatARGB32f:
            return Run<float>(FloatsFromHsva_C4R, *src, *dst, AlphaAt::kFirst);
        default:
            return false;
    }
}

}  // namespace brushworks::Processors
