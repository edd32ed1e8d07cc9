// Bodies of the alpha primitives; built once for each variant.
//
// Alpha takes the way of the colours: with 255 in its place, the product with alpha over 255 is
// alpha itself, so that no lane needs a case of its own.
#include "primitives/alpha.h"

#include "primitives/pixel_lanes.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Each sample of the pixels times the factor of its pixel, over 255.
inline U8 Scaled(U8 pixels, U16 factor) {
    return TimesOver255(Widen(pixels), {factor, factor});
}

inline U8 Premultiply(U8 pixels) {
    return Scaled(Opaque(pixels), Alpha(pixels));
}

inline U8 Over(U8 a, U8 b) {
    const U16 alphaA = Alpha(a), alphaB = Over255InUpper(Alpha(b) * (255 - alphaA)) >> 8;
    return CutSum(Scaled(Opaque(a), alphaA), Scaled(Opaque(b), alphaB));
}

inline U8 OverPremultiplied(U8 a, U8 b) {
    return CutSum(a, Scaled(b, 255 - Alpha(a)));
}

/// dst = composite(a, b).
template <class Composite>
int CompositeRows(PixelRows<const std::uint8_t, 4> a, PixelRows<const std::uint8_t, 4> b,
                  PixelRows<std::uint8_t, 4> dst, IppiSize size, Composite composite) {
    return ForRows(
        size,
        [composite](std::ptrdiff_t pixels, const std::uint8_t* top, const std::uint8_t* bottom,
                    std::uint8_t* to) {
            MapPixels<kLanes>(pixels, composite, Whole<4>(to), Whole<4>(top), Whole<4>(bottom));
        },
        a, b, dst);
}

}  // namespace

int ippiAlphaPremul_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            MapPixels<kLanes>(
                pixels, [](U8 p) { return Premultiply(p); }, Whole<4>(to), Whole<4>(from));
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

int ippiAlphaComp_8u_AC4R(const std::uint8_t* a, int aStep, const std::uint8_t* b, int bStep,
                          std::uint8_t* dst, int dstStep, IppiSize size, int operation) {
    const auto over = Pixels<4>(a, aStep), under = Pixels<4>(b, bStep);
    const auto to = Pixels<4>(dst, dstStep);
    if (const int status = CheckImages({over, under, to}, size)) return status;
    switch (operation) {
        case kAlphaOver:
            return CompositeRows(over, under, to, size, [](U8 p, U8 q) { return Over(p, q); });
        case kAlphaOverPremultiplied:
            return CompositeRows(over, under, to, size,
                                 [](U8 p, U8 q) { return OverPremultiplied(p, q); });
        default:
            return kStatusBadArgument;
    }
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
