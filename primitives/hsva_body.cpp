// Bodies of the conversions to and from hue, saturation, value and alpha; built once for each
// variant. Pixels are turned into planes of one channel each; nothing branches.
#include "primitives/hsva.h"

#include "primitives/float_pixels.h"
#include "primitives/pixel_loops.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr float kByteScale = 0.003921569f;  // one 255th

/// A channel of kLanes pixels in each: colours from blue on, or hue, saturation and value; then
/// alpha.
struct FloatPlanes {
    F32 c[4];
};

/// The bits of `v` where the mask is set, 0 elsewhere.
inline F32 Where(I32 mask, F32 v) {
    return (F32)(mask & (I32)v);
}

/// A NaN counts where it is the first colour and not behind it, since Max and Min give their second
/// operand then.
const auto kToHsva = [](FloatPlanes p) -> FloatPlanes {
    const F32 x0 = p.c[0], x1 = p.c[1], x2 = p.c[2];
    const F32 mx = Max(x2, Max(x1, x0)), mn = Min(x2, Min(x1, x0)), span = mx - mn;
    const I32 coloured = (mx > 0.0f) & (mn < mx);
    const F32 r = 1.0f / span, r0 = (mx - x0) * r, r1 = (mx - x1) * r, r2 = (mx - x2) * r;
    const I32 blue = x0 == mx, green = x1 == mx;
    const F32 plus = blue ? r2 : green ? r0 + 2.0f : r1 + 4.0f;
    const F32 minus = blue ? r1 : green ? r2 : r0;
    F32 h = (plus - minus) * 60.0f;
    h = h < 0.0f ? h + 360.0f : h;
    return {Where(coloured, h / 360.0f), Where(coloured, span / mx), mx, p.c[3]};
};

/// One colour is V, the one before it on the wheel falls to the least as hue comes to V's place,
/// and the one behind rises from there.
const auto kFromHsva = [](FloatPlanes p) -> FloatPlanes {
    const F32 s = p.c[1], v = p.c[2];
    const F32 least = (1.0f - s) * v;
    F32 sector = p.c[0] * 360.0f;
    sector = (sector >= 300.0f ? sector - 360.0f : sector) / 60.0f;
    const I32 blue = (sector >= -1.0f) & (sector <= 1.0f);
    const I32 green = (sector > 1.0f) & (sector <= 3.0f);
    const I32 red = (sector > 3.0f) & (sector < 5.0f);
    const F32 centre = Where(~blue, green ? F32{} + 2.0f : F32{} + 4.0f);
    const F32 t = (sector - centre) * (v - least);
    const F32 before = t < 0.0f ? least - t : least, behind = t < 0.0f ? least : least + t;
    const auto colour = [&](F32 atBlue, F32 atGreen, F32 atRed) {
        const F32 there = blue ? atBlue : green ? atGreen : atRed;
        return s > 0.0f ? Where(blue | green | red, there) : v;
    };
    return {colour(v, before, behind), colour(behind, v, before), colour(before, behind, v),
            p.c[3]};
};

// Four vectors of whole pixels against four of one channel each, by squares of four by four: the
// way there and the way back are the same.

/// Of each four elements the pair of index kPair from a and b, one by one and both together.
template <int kPair, std::size_t... I>
inline F32 ZipPairsOf(F32 a, F32 b, std::index_sequence<I...>) {
    return __builtin_shufflevector(a, b,
                                   (I / 4 * 4 + 2 * kPair + I % 4 / 2 + I % 2 * sizeof...(I))...);
}
template <int kPair, std::size_t... I>
inline F32 JoinPairsOf(F32 a, F32 b, std::index_sequence<I...>) {
    return __builtin_shufflevector(a, b,
                                   (I / 4 * 4 + 2 * kPair + I % 2 + I % 4 / 2 * sizeof...(I))...);
}
inline void Transpose(F32 (&v)[4]) {
    constexpr Indexes<F32> kAll{};
    const F32 low01 = ZipPairsOf<0>(v[0], v[1], kAll), high01 = ZipPairsOf<1>(v[0], v[1], kAll);
    const F32 low23 = ZipPairsOf<0>(v[2], v[3], kAll), high23 = ZipPairsOf<1>(v[2], v[3], kAll);
    v[0] = JoinPairsOf<0>(low01, low23, kAll);
    v[1] = JoinPairsOf<1>(low01, low23, kAll);
    v[2] = JoinPairsOf<0>(high01, high23, kAll);
    v[3] = JoinPairsOf<1>(high01, high23, kAll);
}

/// Converts kLanes pixels, whose channels lie at the places that the layouts give them.
template <AlphaAt kFrom, AlphaAt kTo, class Convert>
inline void ConvertBlock(const float* from, float* to, Convert convert) {
    F32 v[4];
    for (int i = 0; i < 4; ++i) v[i] = Load<F32>(from + kLanes * i);
    Transpose(v);
    const FloatPlanes p = convert(FloatPlanes{v[PlaceOf<kFrom>(0)], v[PlaceOf<kFrom>(1)],
                                              v[PlaceOf<kFrom>(2)], v[PlaceOf<kFrom>(3)]});
    for (int i = 0; i < 4; ++i) v[PlaceOf<kTo>(i)] = p.c[i];
    Transpose(v);
    for (int i = 0; i < 4; ++i) Store(to + kLanes * i, v[i]);
}

template <AlphaAt kFrom, AlphaAt kTo, class Convert>
int ConvertFloats(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                  Convert convert) {
    return ForRows(
        size,
        [convert](std::ptrdiff_t pixels, const float* from, float* to) {
            for (; pixels >= kLanes; pixels -= kLanes, from += 4 * kLanes, to += 4 * kLanes)
                ConvertBlock<kFrom, kTo>(from, to, convert);
            float block[4 * kLanes] = {};
            const std::size_t rest = static_cast<std::size_t>(pixels) * 4 * sizeof(float);
            std::memcpy(block, from, rest);
            ConvertBlock<kFrom, kTo>(block, block, convert);
            std::memcpy(to, block, rest);
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

template <AlphaAt kFrom, AlphaAt kTo, class Convert>
int ConvertBytes(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                 IppiSize size, Convert convert) {
    const auto converted = [convert](U8 bytes) {
        const auto sample = [bytes](int i) { return (U32)bytes >> 8 * PlaceOf<kFrom>(i) & 255u; };
        const auto unit = [sample](int i) { return ToFloat((I32)sample(i)) * kByteScale; };
        const FloatPlanes p = convert(FloatPlanes{unit(0), unit(1), unit(2), {}});
        U32 result = sample(3) << 8 * PlaceOf<kTo>(3);
        for (int i = 0; i < 3; ++i) {
            const F32 cut = Min(Max(p.c[i] * 255.0f, F32{}), F32{} + 255.0f);
            result |= (U32)ToInt(cut) << 8 * PlaceOf<kTo>(i);
        }
        return (U8)result;
    };
    return ForRows(
        size,
        [converted](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            MapPixels<kLanes>(pixels, converted, Whole<4>(to), Whole<4>(from));
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

constexpr AlphaAt kFirst = AlphaAt::kFirst, kLast = AlphaAt::kLast;

}  // namespace

int HsvaFromFloats_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                       AlphaAt alpha) {
    return alpha == kFirst ? ConvertFloats<kFirst, kLast>(src, srcStep, dst, dstStep, size, kToHsva)
                           : ConvertFloats<kLast, kLast>(src, srcStep, dst, dstStep, size, kToHsva);
}

int FloatsFromHsva_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                       AlphaAt alpha) {
    return alpha == kFirst
               ? ConvertFloats<kLast, kFirst>(src, srcStep, dst, dstStep, size, kFromHsva)
               : ConvertFloats<kLast, kLast>(src, srcStep, dst, dstStep, size, kFromHsva);
}

int HsvaFromBytes_A4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size) {
    return ConvertBytes<kFirst, kLast>(src, srcStep, dst, dstStep, size, kToHsva);
}

int BytesFromHsva_A4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size) {
    return ConvertBytes<kLast, kFirst>(src, srcStep, dst, dstStep, size, kFromHsva);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
