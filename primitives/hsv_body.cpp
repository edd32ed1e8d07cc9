// Bodies of the conversions to and from hue, saturation and value; built once for each variant.
// Nothing branches: every pixel of a vector takes the same path, and selects pick its case.
#include "primitives/hsv.h"

#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

template <class Sample>
inline constexpr float kLargest = sizeof(Sample) == 1 ? 255.0f : 65535.0f;

/// The hue within the wheel of 6 is (base + u r) - w r with r = 1 / (mx - mn); the largest sample
/// picks base, u and w, and the first of equals wins. A gray pixel divides by 1 instead of 0, which
/// gives hue 0, since its first sample is its largest and u is 0; its saturation is 0 / mx, and for
/// black 0 / 1.
template <class Sample>
inline Planes ToHsv(Planes p) {
    constexpr float kM = kLargest<Sample>;
    const I32 mx = Max(Max(p.s0, p.s1), p.s2), mn = Min(Min(p.s0, p.s1), p.s2), span = mx - mn;
    const I32 first = mx == p.s0, second = mx == p.s1;
    const I32 u = first ? p.s1 - p.s2 : second ? mx - p.s0 : p.s0 - mx;
    const I32 w = first ? I32{} : second ? mx - p.s2 : p.s1 - mx;
    const I32 base = first ? I32{} : second ? I32{} + 2 : I32{} + 4;
    const F32 r = 1.0f / ToFloat(Max(span, I32{} + 1));
    F32 h = ((ToFloat(base) + ToFloat(u) * r) - ToFloat(w) * r) * kM / 6.0f;
    h = h < 0.0f ? h + kM : h;
    const F32 s = ToFloat(span) / ToFloat(Max(mx, I32{} + 1)) * kM;
    return {ToInt(h + 0.5f), ToInt(s + 0.5f), mx};
}

/// Two of the three results of a pixel are V and m. The third is k in the even sixths of the wheel
/// and n in the odd ones, which differ in one factor only. All of them lie in 0..V, and with S of 0
/// all are V.
template <class Sample>
inline Planes FromHsv(Planes p) {
    constexpr float kM = kLargest<Sample>;
    const F32 value = ToFloat(p.s2), s = ToFloat(p.s1) / kM;
    F32 h = ToFloat(p.s0 * 6) / kM;
    h = h >= 6.0f ? h - 6.0f : h;
    const I32 i = ToInt(h);
    const F32 f = h - ToFloat(i);
    const I32 even = (i & 1) == 0;
    const I32 m = ToInt(value * (1.0f - s) + 0.5f);
    const I32 t = ToInt(value * (1.0f - s * (even ? 1.0f - f : f)) + 0.5f);
    const I32 v = p.s2;
    const I32 below1 = i < 1, below2 = i < 2, below3 = i < 3, below4 = i < 4, below5 = i < 5;
    return {below1   ? v
            : below2 ? t
            : below4 ? m
            : below5 ? t
                     : v,
            below1   ? t
            : below3 ? v
            : below4 ? t
                     : m,
            below2   ? m
            : below3 ? t
            : below5 ? v
                     : t};
}

template <class Sample, class Convert>
int ConvertRows(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size,
                Convert convert) {
    constexpr int kPixelBytes = 4 * sizeof(Sample);
    if (const int status =
            CheckImages({{src, srcStep, kPixelBytes}, {dst, dstStep, kPixelBytes}}, size))
        return status;
    for (int y = 0; y < size.height; ++y)
        ForBlocksAC4<kLanes>(
            Row(src, srcStep, y), Row(dst, dstStep, y), size.width,
            [&](const Sample* from, Sample* to, int) { Join(to, convert(Split(from))); });
    return kStatusOk;
}

}  // namespace

int ippiRGBToHSV_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size) {
    return ConvertRows(src, srcStep, dst, dstStep, size,
                       [](Planes p) { return ToHsv<std::uint8_t>(p); });
}

int ippiRGBToHSV_16u_AC4R(const std::uint16_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                          IppiSize size) {
    return ConvertRows(src, srcStep, dst, dstStep, size,
                       [](Planes p) { return ToHsv<std::uint16_t>(p); });
}

int ippiHSVToRGB_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size) {
    return ConvertRows(src, srcStep, dst, dstStep, size,
                       [](Planes p) { return FromHsv<std::uint8_t>(p); });
}

int ippiHSVToRGB_16u_AC4R(const std::uint16_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                          IppiSize size) {
    return ConvertRows(src, srcStep, dst, dstStep, size,
                       [](Planes p) { return FromHsv<std::uint16_t>(p); });
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
