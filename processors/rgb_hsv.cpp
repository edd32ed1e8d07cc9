#include "processors/rgb_hsv.h"

#include <algorithm>

#include "frames/truncate.h"
#include "primitives/hsv.h"
#include "processors/copy.h"
#include "processors/copy_plane.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

struct Colour {
    float x0, x1, x2;  // blue, green, red
};

HSVA ToHsv(Colour p, float alpha) {
    const float mx = std::max({p.x0, p.x1, p.x2}), mn = std::min({p.x0, p.x1, p.x2});
    if (!(mx > 0.0f) || !(mn < mx)) return {0.0f, 0.0f, mx, alpha};
    const float i = 1.0f / (mx - mn);
    const float r0 = (mx - p.x0) * i, r1 = (mx - p.x1) * i, r2 = (mx - p.x2) * i;
    float h = 0.0f;  // as it stays where no sample equals the largest
    if (mx == p.x0)
        h = (r2 - r1) * 60.0f;
    else if (mx == p.x1)
        h = (r0 + 2.0f - r2) * 60.0f;
    else if (mx == p.x2)
        h = (r1 + 4.0f - r0) * 60.0f;
    if (h < 0.0f) h += 360.0f;
    return {h / 360.0f, (mx - mn) / mx, mx, alpha};
}

Colour ToRgb(float h, float s, float v) {
    if (!(s > 0.0f)) return {v, v, v};
    const float mn = (1.0f - s) * v, d = v - mn;
    float sector = h * 360.0f;
    if (sector >= 300.0f) sector -= 360.0f;
    sector /= 60.0f;
    if (sector >= -1.0f && sector <= 1.0f) {
        const float t = sector * d;
        return t < 0.0f ? Colour{v, mn, mn - t} : Colour{v, mn + t, mn};
    }
    if (sector > 1.0f && sector <= 3.0f) {
        const float t = (sector - 2.0f) * d;
        return t < 0.0f ? Colour{mn - t, v, mn} : Colour{mn, v, mn + t};
    }
    if (sector > 3.0f && sector < 5.0f) {
        const float t = (sector - 4.0f) * d;
        return t < 0.0f ? Colour{mn, mn - t, v} : Colour{mn + t, mn, v};
    }
    return {0.0f, 0.0f, 0.0f};
}

std::uint8_t TruncatedByte(float unit) {
    return static_cast<std::uint8_t>(std::clamp(Truncate(unit * 255.0f), 0, 255));
}

float Unit(std::uint8_t byte) {
    return byte * kByteToFloat;
}

/// Calls convert(source pixel, destination pixel) for the common rectangle; the frames may be one.
template <class From, class To, class Convert>
bool ForPixels(const CFrame& src, const CFrame& dst, Convert convert) {
    const IppiSize size = CommonSize(src, dst);
    for (int y = 0; y < size.height; ++y) {
        const From* from = RowOf<const From>(src, y);
        To* to = RowOf<To>(dst, y);
        for (int x = 0; x < size.width; ++x) convert(from[x], to[x]);
    }
    return true;
}

struct HsvaBytes {
    std::uint8_t h, s, v, a;
};

}  // namespace

HSVA CRGBToHSV::HSVAFromBGRA(const VideoSampleFloat& sample) {
    return ToHsv({sample.b, sample.g, sample.r}, sample.a);
}

HSVA CRGBToHSV::HSVAFromARGB(const VideoSampleSwappedFloat& sample) {
    return ToHsv({sample.b, sample.g, sample.r}, sample.a);
}

bool CRGBToHSV::Process(CFrame* src, CFrame* dst) {
    switch (src->m_pfPixelFormat) {
        case PixelFormatBGRA8: {
            // Alpha comes with the copy.
            const bool copied = CCopy().Process(src, dst);
            return ippiRGBToHSV_8u_AC4R(src->m_pBuffer, src->m_nByteSpan, dst->m_pBuffer,
                                        dst->m_nByteSpan, CommonSize(*src, *dst)) == kStatusOk &&
                   copied;
        }
        case PixelFormatARGB8:
            return ForPixels<VideoSampleSwapped, HsvaBytes>(
                *src, *dst, [](VideoSampleSwapped from, HsvaBytes& to) {
                    const HSVA p = ToHsv({Unit(from.b), Unit(from.g), Unit(from.r)}, 0.0f);
                    to = {TruncatedByte(p.h), TruncatedByte(p.s), TruncatedByte(p.v), from.a};
                });
        case PixelFormatBGRA32f:
            return ForPixels<VideoSampleFloat, HSVA>(
                *src, *dst, [](VideoSampleFloat from, HSVA& to) {
                    to = ToHsv({from.b, from.g, from.r}, from.a);
                });
        case PixelFormatARGB32f:
            return ForPixels<VideoSampleSwappedFloat, HSVA>(
                *src, *dst, [](VideoSampleSwappedFloat from, HSVA& to) {
                    to = ToHsv({from.b, from.g, from.r}, from.a);
                });
        default:
            return false;
    }
}

bool CHSVToRGB::Process(CFrame* src, CFrame* dst) {
    switch (dst->m_pfPixelFormat) {
        case PixelFormatBGRA8: {
            const bool converted =
                ippiHSVToRGB_8u_AC4R(src->m_pBuffer, src->m_nByteSpan, dst->m_pBuffer,
                                     dst->m_nByteSpan, CommonSize(*src, *dst)) == kStatusOk;
            return CCopyPlane().Process(src, dst, 3, 3) && converted;
        }
        case PixelFormatARGB8:
            return ForPixels<HsvaBytes, VideoSampleSwapped>(
                *src, *dst, [](HsvaBytes from, VideoSampleSwapped& to) {
                    const Colour p = ToRgb(Unit(from.h), Unit(from.s), Unit(from.v));
                    to = {from.a, TruncatedByte(p.x2), TruncatedByte(p.x1), TruncatedByte(p.x0)};
                });
        case PixelFormatBGRA32f:
            return ForPixels<HSVA, VideoSampleFloat>(
                *src, *dst, [](HSVA from, VideoSampleFloat& to) {
                    const Colour p = ToRgb(from.h, from.s, from.v);
                    to = {p.x0, p.x1, p.x2, from.a};
                });
        case PixelFormatARGB32f:
            return ForPixels<HSVA, VideoSampleSwappedFloat>(
                *src, *dst, [](HSVA from, VideoSampleSwappedFloat& to) {
                    const Colour p = ToRgb(from.h, from.s, from.v);
                    to = {from.a, p.x2, p.x1, p.x0};
                });
        default:
            return false;
    }
}

}  // namespace brushworks::Processors
