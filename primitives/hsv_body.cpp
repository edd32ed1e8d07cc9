// Bodies of the conversions to and from hue, saturation and value; built once for each variant.
// Nothing branches: every pixel of a vector takes the same path, and selects pick its case.
#include "primitives/hsv.h"

#include "primitives/pixel_loops.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

template <class Sample>
inline constexpr float kLargest = sizeof(Sample) == 1 ? 255.0f : 65535.0f;

/// The bits of `v` where the mask is set, 0 elsewhere.
inline F32 Where(I32 mask, F32 v) {
    return (F32)(mask & (I32)v);
}
inline F32 NegateWhere(I32 mask, F32 v) {
    return (F32)((I32)v ^ (I32)((U32)mask & 0x80000000u));
}

/// With the distances a, b, c of the samples from the largest one and r = 1 / (mx - mn), the hue on
/// the wheel of 6 is (c - b) r where the first sample is the largest, else 2 + a r - c r where the
/// second is, else 4 - a r + b r. The largest's own distance is 0, so that one sum serves all
/// three: base + u r - w r with u = a or -a and w = c - b or b - c. Gray divides by 1 instead of 0,
/// which gives hue and saturation 0.
/// Inlined by force, as a call for each vector would double its time.
template <class Sample>
[[gnu::always_inline]] inline Planes ToHsv(Planes p) {
    constexpr float kM = kLargest<Sample>;
    const F32 one = F32{} + 1.0f;
    const F32 s0 = ToFloat(p.s0), s1 = ToFloat(p.s1), s2 = ToFloat(p.s2);
    const F32 mx = Max(Max(s0, s1), s2), span = mx - Min(Min(s0, s1), s2);
    const I32 first = s0 == mx, second = s1 == mx;
    const F32 base = Where(~first, 4.0f - Where(second, F32{} + 2.0f));
    const F32 u = NegateWhere(~second, mx - s0);
    const F32 w = NegateWhere(first, (mx - s2) - (mx - s1));
    const F32 r = 1.0f / Max(span, one);
    F32 h = (base + u * r - w * r) * kM / 6.0f;
    h += Where(h < 0.0f, F32{} + kM);
    const F32 s = span / Max(mx, one) * kM;
    return {ToInt(h + 0.5f), ToInt(s + 0.5f), ToInt(mx)};
}

/// Each result is V (1 - s g), where g is 0 in two sixths of the wheel (V itself), 1 in two others
/// (m), and rises or falls with the place between them (n and k). Cutting two straight lines to
/// 0..1 gives g without a look at the sixth; the lines are exact where they are taken. The results
/// lie in 0..V.
template <class Sample>
[[gnu::always_inline]] inline Planes FromHsv(Planes p) {
    constexpr float kM = kLargest<Sample>;
    const F32 value = ToFloat(p.s2), s = ToFloat(p.s1) / kM;
    F32 h = ToFloat(p.s0) * 6.0f / kM;
    h = Where(h < 6.0f, h);  // the full turn, 6, is no turn
    const auto sample = [&](F32 g) {
        g = Min(Max(g, F32{}), F32{} + 1.0f);
        return ToInt(value * (1.0f - s * g) + 0.5f);
    };
    return {sample(Min(h - 1.0f, 5.0f - h)), sample(Max(1.0f - h, h - 3.0f)),
            sample(Max(3.0f - h, h - 5.0f))};
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

/// Whole pixels, with their fourth samples.
template <class Convert>
int ConvertWhole(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                 IppiSize size, Convert convert) {
    return ForRows(
        size,
        [convert](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            const auto converted = [convert](U8 bytes) {
                return (U8)Joined((U32)bytes, convert(Split((U32)bytes)));
            };
            MapPixels<kLanes>(pixels, converted, Whole<4>(to), Whole<4>(from));
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
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

int HsvFromBytes_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                     IppiSize size) {
    return ConvertWhole(src, srcStep, dst, dstStep, size,
                        [](Planes p) { return ToHsv<std::uint8_t>(p); });
}

int BytesFromHsv_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                     IppiSize size) {
    return ConvertWhole(src, srcStep, dst, dstStep, size,
                        [](Planes p) { return FromHsv<std::uint8_t>(p); });
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
