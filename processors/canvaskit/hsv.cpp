#include "processors/canvaskit/hsv.h"

#include <algorithm>

#include "frames/art_frame.h"
#include "frames/truncate.h"
#include "primitives/arithmetic.h"
#include "primitives/convert.h"
#include "primitives/hsv.h"
#include "processors/region.h"

namespace brushworks::Canvaskit {
namespace {

/// Factors are 16-bit numbers of 128ths: the shift that undoes them.
constexpr int kFactorShift = 7;

/// Rows worked at a time: both 16-bit strips of a 1920 pixel row stay in the second-level cache.
constexpr int kStripRows = 16;

std::uint16_t Factor(float factor) {
    return static_cast<std::uint16_t>(std::clamp(Truncate(factor * (1 << kFactorShift)), 0, 65535));
}

}  // namespace

bool CHSV::Process(CFrame& src, CFrame& dst, float hue, float saturation, float value) {
    if (src.m_nDepth != 4 || dst.m_nDepth != 4) return false;
    const IppiSize size = Processors::CommonSize(src, dst);
    const std::uint16_t factors[4] = {Factor(hue), Factor(saturation), Factor(value),
                                      1 << kFactorShift};

    CArtFrame rgb, hsv;
    const int stripRows = std::min(kStripRows, size.height);
    if (!rgb.Init(size.width, stripRows, 4, 2) || !hsv.Init(size.width, stripRows, 4, 2))
        return false;
    const int span = rgb.m_nByteSpan;
    for (int y = 0; y < size.height; y += stripRows) {
        const IppiSize strip = {size.width, std::min(stripRows, size.height - y)};
        const auto* from = Processors::RowOf<unsigned char>(src, y);
        auto* to = Processors::RowOf<unsigned char>(dst, y);
        // The samples keep their 8-bit values in the 16-bit strips: the widening does not rescale
        // them.
        if (ippiConvert_8u16u_C4R(from, src.m_nByteSpan, rgb.words(), span, strip) != kStatusOk ||
            ippiRGBToHSV_16u_AC4R(rgb.words(), span, hsv.words(), span, strip) != kStatusOk ||
            ippiMulC_16u_AC4IRSfs(factors, hsv.words(), span, strip, kFactorShift) != kStatusOk ||
            ippiHSVToRGB_16u_AC4R(hsv.words(), span, rgb.words(), span, strip) != kStatusOk ||
            ippiConvert_16u8u_C4R(rgb.words(), span, to, dst.m_nByteSpan, strip) != kStatusOk)
            return false;
    }
    return true;
}

}  // namespace brushworks::Canvaskit
