// Bodies of the mixtures of two pictures; built once for each variant.
//
// In the straight compositions alpha takes the way of the colours, with full samples in its place.
#include "primitives/blend.h"

#include "primitives/float_pixels.h"
#include "primitives/pixel_lanes.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// dst = result(a, b, old dst), vectors of Count pixels at a time.
template <int Channels, int Count, class Sample, class Result>
int Blend(const Sample* a, int aStep, const Sample* b, int bStep, Sample* dst, int dstStep,
          IppiSize size, Result result) {
    return ForRows(
        size,
        [result](std::ptrdiff_t pixels, const Sample* first, const Sample* second, Sample* to) {
            MapPixels<Count>(pixels, result, Whole<Channels>(to), Whole<Channels>(first),
                             Whole<Channels>(second), Whole<Channels>(to));
        },
        Pixels<Channels>(a, aStep), Pixels<Channels>(b, bStep), Pixels<Channels>(dst, dstStep));
}

/// One sum of products. The second product is cut so that the sum is at most 255 times 255: the
/// quotient is then cut at 255 too, and the sum fits its lane.
inline U16 MixLanes(U16 a, U16 b, std::uint16_t wa, std::uint16_t wb) {
    const U16 first = a * wa;
    return first + Min<U16>(b * wb, 65025 - first);
}

/// One sample of each word by the other: a division by 0 ends as 255 in the cut, NaN too.
inline U32 DodgeLanes(U32 base, U32 blend, int shift) {
    const F32 dividend = ToFloat((I32)(base >> shift & 255) << 8);
    const F32 divisor = ToFloat(255 - (I32)(blend >> shift & 255));
    return (U32)ToInt(Min(dividend / divisor, F32{} + 255.0f));
}

template <AlphaAt kAlpha>
struct Bytes {
    static constexpr bool kFirst = kAlpha == AlphaAt::kFirst;
    static constexpr int kColours = kFirst ? 8 : 0;  // the shift of the first colour
    static constexpr int kRed = kFirst ? 8 : 16;
    static constexpr std::uint32_t kAlphaMask = kFirst ? 0xFFu : 0xFF000000u;

    static U8 Dodge(U8 base, U8 blend, U8 old) {
        U32 pixels = (U32)old & kAlphaMask;
        for (int shift = kColours; shift < kColours + 24; shift += 8)
            pixels |= DodgeLanes((U32)base, (U32)blend, shift) << shift;
        return (U8)pixels;
    }
    static U8 DodgeMono(U8 base, U8 blend, U8 old) {
        const U32 red = DodgeLanes((U32)base, (U32)blend, kRed);
        const U32 gray = (red | red << 8 | red << 16) << kColours;
        return (U8)(gray | ((U32)old & kAlphaMask));
    }
};

template <AlphaAt kAlpha>
struct Floats {
    static constexpr bool kFirst = kAlpha == AlphaAt::kFirst;
    static constexpr int kAlphaSample = kFirst ? 0 : 3;
    static constexpr int kRedSample = kFirst ? 1 : 2;

    static F32 Dodge(F32 base, F32 blend, F32 old) {
        const F32 one = F32{} + 1.0f;
        const F32 cut = Min(one, base / (one - blend));
        return WithSample<kAlphaSample>(blend == one ? one : cut, old);
    }
    static F32 DodgeMono(F32 base, F32 blend, F32 old) {
        return Dodge(Spread<kRedSample>(base), Spread<kRedSample>(blend), old);
    }
    static F32 Over(F32 f, F32 b, F32) {
        const F32 one = F32{} + 1.0f;
        const F32 fa = Spread<kAlphaSample>(f), t = (one - fa) * Spread<kAlphaSample>(b);
        return fa * WithSample<kAlphaSample>(f, one) + t * WithSample<kAlphaSample>(b, one);
    }
    static F32 OverPremultiplied(F32 f, F32 b, F32) {
        return (1.0f - Spread<kAlphaSample>(f)) * b + f;
    }
};

/// Sample 0 of each pixel, once for every sample.
inline U16 FirstAlpha(U8 pixels) {
    const U32 alpha = (U32)pixels & 255;
    return (U16)(alpha | alpha << 16);
}
/// The same pixels with 255 in sample 0.
inline WideBytes FirstOpaque(U8 pixels) {
    return Widen((U8)((U32)pixels | 255u));
}

/// The truncated quotient of lanes up to 255 times 255 by 255.
inline U8 Over255(U16 even, U16 odd) {
    return (U8)(Over255InUpper(even) >> 8 | (Over255InUpper(odd) & 0xFF00));
}

}  // namespace

int MixBytes_C1R(const std::uint8_t* a, int aStep, const std::uint8_t* b, int bStep,
                 std::uint8_t* dst, int dstStep, IppiSize size, int wa, int wb) {
    const auto first = Pixels<1>(a, aStep), second = Pixels<1>(b, bStep);
    if (const int status = CheckImages({first, second, Pixels<1>(dst, dstStep)}, size))
        return status;
    if (wa < 0 || wa > 255 || wb < 0 || wb > 255) return kStatusBadArgument;
    const auto wideA = static_cast<std::uint16_t>(wa), wideB = static_cast<std::uint16_t>(wb);
    return Blend<1, kVectorBytes>(a, aStep, b, bStep, dst, dstStep, size, [=](U8 p, U8 q, U8) {
        const WideBytes wp = Widen(p), wq = Widen(q);
        return Over255(MixLanes(wp.even, wq.even, wideA, wideB),
                       MixLanes(wp.odd, wq.odd, wideA, wideB));
    });
}

int MixFloats_C1R(const float* a, int aStep, const float* b, int bStep, float* dst, int dstStep,
                  IppiSize size, float wa, float wb, float most) {
    return Blend<1, kLanes>(a, aStep, b, bStep, dst, dstStep, size,
                            [=](F32 p, F32 q, F32) { return Min(F32{} + most, wa * p + wb * q); });
}

int DodgeBytes_C1R(const std::uint8_t* base, int baseStep, const std::uint8_t* blend, int blendStep,
                   std::uint8_t* dst, int dstStep, IppiSize size) {
    return Blend<1, kVectorBytes>(base, baseStep, blend, blendStep, dst, dstStep, size,
                                  [](U8 p, U8 q, U8) {
                                      U32 samples{};
                                      for (int shift = 0; shift < 32; shift += 8)
                                          samples |= DodgeLanes((U32)p, (U32)q, shift) << shift;
                                      return (U8)samples;
                                  });
}

// Each form for both places of alpha.
#define BRUSHWORKS_BY_ALPHA(Sample, name, Layout, method, count)                                  \
    int name(const Sample* a, int aStep, const Sample* b, int bStep, Sample* dst, int dstStep,    \
             IppiSize size, AlphaAt alpha) {                                                      \
        return alpha == AlphaAt::kFirst ? Blend<4, count>(a, aStep, b, bStep, dst, dstStep, size, \
                                                          Layout<AlphaAt::kFirst>::method)        \
                                        : Blend<4, count>(a, aStep, b, bStep, dst, dstStep, size, \
                                                          Layout<AlphaAt::kLast>::method);        \
    }
BRUSHWORKS_BY_ALPHA(std::uint8_t, DodgeBytes_C4R, Bytes, Dodge, kLanes)
BRUSHWORKS_BY_ALPHA(std::uint8_t, DodgeBytesMono_C4R, Bytes, DodgeMono, kLanes)
BRUSHWORKS_BY_ALPHA(float, DodgeFloats_C4R, Floats, Dodge, kLanes / 4)
BRUSHWORKS_BY_ALPHA(float, DodgeFloatsMono_C4R, Floats, DodgeMono, kLanes / 4)
BRUSHWORKS_BY_ALPHA(float, OverFloats_C4R, Floats, Over, kLanes / 4)
BRUSHWORKS_BY_ALPHA(float, OverFloatsPremultiplied_C4R, Floats, OverPremultiplied, kLanes / 4)
#undef BRUSHWORKS_BY_ALPHA

int OverBytes_A4R(const std::uint8_t* f, int fStep, const std::uint8_t* b, int bStep,
                  std::uint8_t* dst, int dstStep, IppiSize size) {
    return Blend<4, kLanes>(f, fStep, b, bStep, dst, dstStep, size, [](U8 p, U8 q, U8) {
        const U16 fa = FirstAlpha(p), t = Over255InUpper(FirstAlpha(q) * (255 - fa)) >> 8;
        const WideBytes wp = FirstOpaque(p), wq = FirstOpaque(q);
        return Over255(fa * wp.even + t * wq.even, fa * wp.odd + t * wq.odd);
    });
}

int OverBytesPremultiplied_A4R(const std::uint8_t* f, int fStep, const std::uint8_t* b, int bStep,
                               std::uint8_t* dst, int dstStep, IppiSize size) {
    return Blend<4, kLanes>(f, fStep, b, bStep, dst, dstStep, size, [](U8 p, U8 q, U8) {
        const U16 rest = 255 - FirstAlpha(p);
        return CutSum(p, TimesOver255(Widen(q), {rest, rest}));
    });
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
