// Bodies of the alpha primitives; built once for each variant.
//
// Alpha takes the way of the colours: with 255 in its place, the product with alpha over 255 is
// alpha itself, so that no lane needs a case of its own.
#include "primitives/alpha.h"

#include "primitives/pixel_lanes.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000u;

/// Each sample of the pixels times the factor of its pixel, over 255.
inline WideSamples Scaled(U32 pixels, U16 factor) {
    const WideSamples s = Widen(pixels);
    return {Over255(s.even * factor), Over255(s.odd * factor)};
}

/// The sum, at most 255, of samples up to 255.
inline U32 CutSum(WideSamples a, WideSamples b) {
    return Narrow({Min<U16>(a.even + b.even, U16{} + 255), Min<U16>(a.odd + b.odd, U16{} + 255)});
}

inline U32 Premultiply(U32 pixels) {
    return Narrow(Scaled(pixels | kOpaque, Alpha(pixels)));
}

inline U32 Over(U32 a, U32 b) {
    const U16 alphaA = Alpha(a), alphaB = Over255(Alpha(b) * (255 - alphaA));
    return CutSum(Scaled(a | kOpaque, alphaA), Scaled(b | kOpaque, alphaB));
}

inline U32 OverPremultiplied(U32 a, U32 b) {
    return CutSum(Widen(a), Scaled(b, 255 - Alpha(a)));
}

}  // namespace

int ippiAlphaPremul_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            MapPixels(
                pixels, [](U32 p) { return Premultiply(p); }, to, from);
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
            return ForRows(
                size,
                [](std::ptrdiff_t pixels, const std::uint8_t* top, const std::uint8_t* bottom,
                   std::uint8_t* row) {
                    MapPixels(
                        pixels, [](U32 p, U32 q) { return Over(p, q); }, row, top, bottom);
                },
                over, under, to);
        case kAlphaOverPremultiplied:
            return ForRows(
                size,
                [](std::ptrdiff_t pixels, const std::uint8_t* top, const std::uint8_t* bottom,
                   std::uint8_t* row) {
                    MapPixels(
                        pixels, [](U32 p, U32 q) { return OverPremultiplied(p, q); }, row, top,
                        bottom);
                },
                over, under, to);
        default:
            return kStatusBadArgument;
    }
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
