// Bodies of the tinted luminance, the fade and the products with alpha; built once for each
// variant.
#include "primitives/tint.h"

#include "primitives/float_pixels.h"
#include "primitives/pixel_lanes.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr float kByteScale = 0.003921569f;  // one 255th
constexpr float kRedWeight = 0.298f, kGreenWeight = 0.586f, kBlueWeight = 0.113f;

/// dst = result(src, old dst), vectors of Count pixels at a time.
template <int Count, class Sample, class Result>
int Map(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size, Result result) {
    return ForRows(
        size,
        [result](std::ptrdiff_t pixels, const Sample* from, Sample* to) {
            MapPixels<Count>(pixels, result, Whole<4>(to), Whole<4>(from), Whole<4>(to));
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

template <AlphaAt kAlpha>
int TintBytes(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
              const float color[3]) {
    constexpr bool kFirst = kAlpha == AlphaAt::kFirst;
    constexpr int kRed = kFirst ? 8 : 16, kGreen = kFirst ? 16 : 8, kBlue = kFirst ? 24 : 0;
    const float r = color[0], g = color[1], b = color[2];
    return Map<kLanes>(src, srcStep, dst, dstStep, size, [=](U8 bytes, U8) {
        const auto pixels = (U32)bytes;
        const auto sample = [pixels](int shift) { return ToFloat((I32)(pixels >> shift & 255)); };
        const F32 y = (kRedWeight * sample(kRed) + kGreenWeight * sample(kGreen) +
                       kBlueWeight * sample(kBlue)) *
                      kByteScale;
        return (U8)((U32)ToInt(r * y) << kRed | (U32)ToInt(g * y) << kGreen |
                    (U32)ToInt(b * y) << kBlue);
    });
}

template <AlphaAt kAlpha>
int TintFloats(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
               const float color[3]) {
    constexpr bool kFirst = kAlpha == AlphaAt::kFirst;
    constexpr int kRed = kFirst ? 1 : 2, kGreen = kFirst ? 2 : 1, kBlue = kFirst ? 3 : 0;
    const float last[4] = {color[2], color[1], color[0], 1.0f};
    const float first[4] = {1.0f, color[0], color[1], color[2]};
    const auto tint = Repeat<F32>(kFirst ? first : last, 4);
    return Map<kLanes / 4>(src, srcStep, dst, dstStep, size, [tint](F32 pixels, F32) {
        const F32 y = kRedWeight * Spread<kRed>(pixels) + kGreenWeight * Spread<kGreen>(pixels) +
                      kBlueWeight * Spread<kBlue>(pixels);
        return Min(F32{} + 1.0f, y) * tint * kByteScale;
    });
}

/// The product of alpha and fade stays below 2^24, so that a float holds it exactly.
constexpr int kMostFade = 65536;

template <AlphaAt kAlpha>
int FadeBytes(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
              int fade) {
    constexpr int kShift = 8 * PlaceOf<kAlpha>(3);
    const auto factor = static_cast<float>(fade);
    return Map<kLanes>(src, srcStep, dst, dstStep, size, [factor](U8 pixels, U8) {
        const F32 alpha = ToFloat((I32)((U32)pixels >> kShift & 255u));
        const auto t = (U32)Min(ToInt(alpha * factor) >> 8, I32{} + 255);
        const auto both = (U16)(t | t << 16);
        const WideBytes wide = Widen(pixels);
        const U16 product = wide.even * both >> 8 | (wide.odd * both & 0xFF00);
        return (U8)(((U32)product & ~(255u << kShift)) | t << kShift);
    });
}

template <AlphaAt kAlpha>
int FadeFloats(const float* src, int srcStep, float* dst, int dstStep, IppiSize size, float fade) {
    constexpr int kAlphaSample = PlaceOf<kAlpha>(3);
    return Map<kLanes / 4>(src, srcStep, dst, dstStep, size, [fade](F32 pixels, F32) {
        const F32 cut = Min(Max(pixels, F32{}), F32{} + 1.0f);
        const F32 t = Spread<kAlphaSample>(cut) * fade * kByteScale;
        return WithSample<kAlphaSample>(cut * t, t);
    });
}

template <int kAlphaSample>
int PremultiplyFloats(const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
    return Map<kLanes / 4>(src, srcStep, dst, dstStep, size, [](F32 pixels, F32 old) {
        return WithSample<kAlphaSample>(pixels * Spread<kAlphaSample>(pixels), old);
    });
}

/// A colour outside 0..255 would leave its byte.
bool IsColour(const float color[3]) {
    for (int i = 0; i < 3; ++i)
        if (!(color[i] >= 0.0f && color[i] <= 255.0f)) return false;
    return true;
}

}  // namespace

int TintBytes_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                  IppiSize size, const float color[3], AlphaAt alpha) {
    if (!color) return kStatusNullPointer;
    if (const int status = CheckImages({{src, srcStep, 4}, {dst, dstStep, 4}}, size)) return status;
    if (!IsColour(color)) return kStatusBadArgument;
    return alpha == AlphaAt::kFirst
               ? TintBytes<AlphaAt::kFirst>(src, srcStep, dst, dstStep, size, color)
               : TintBytes<AlphaAt::kLast>(src, srcStep, dst, dstStep, size, color);
}

int TintFloats_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                   const float color[3], AlphaAt alpha) {
    if (!color) return kStatusNullPointer;
    return alpha == AlphaAt::kFirst
               ? TintFloats<AlphaAt::kFirst>(src, srcStep, dst, dstStep, size, color)
               : TintFloats<AlphaAt::kLast>(src, srcStep, dst, dstStep, size, color);
}

int FadeBytes_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                  IppiSize size, int fade, AlphaAt alpha) {
    if (const int status = CheckImages({{src, srcStep, 4}, {dst, dstStep, 4}}, size)) return status;
    if (fade < 0 || fade > kMostFade) return kStatusBadArgument;
    return alpha == AlphaAt::kFirst
               ? FadeBytes<AlphaAt::kFirst>(src, srcStep, dst, dstStep, size, fade)
               : FadeBytes<AlphaAt::kLast>(src, srcStep, dst, dstStep, size, fade);
}

int FadeFloats_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                   float fade, AlphaAt alpha) {
    return alpha == AlphaAt::kFirst
               ? FadeFloats<AlphaAt::kFirst>(src, srcStep, dst, dstStep, size, fade)
               : FadeFloats<AlphaAt::kLast>(src, srcStep, dst, dstStep, size, fade);
}

int PremultiplyBytes_A4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size) {
    return Map<kLanes>(src, srcStep, dst, dstStep, size, [](U8 pixels, U8 old) {
        const U32 alpha = (U32)pixels & 255;
        const auto factor = (U16)(alpha | alpha << 16);
        const U8 product = TimesOver255(Widen(pixels), {factor, factor});
        return (U8)(((U32)product & ~255u) | ((U32)old & 255u));
    });
}

int PremultiplyFloats_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                          AlphaAt alpha) {
    return alpha == AlphaAt::kFirst ? PremultiplyFloats<0>(src, srcStep, dst, dstStep, size)
                                    : PremultiplyFloats<3>(src, srcStep, dst, dstStep, size);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
