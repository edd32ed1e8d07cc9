// Bodies of the conversions; built once for each variant.
#include "primitives/convert.h"

#include "primitives/pixel_loops.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// As many 16-bit samples as a vector holds floats.
using Narrow16 = VectorOf<std::uint16_t, kLanes>;

/// The samples cut to the range of 16 bits; NaN gives 0.
inline F32 Cut16(F32 samples) {
    return Min(Max(samples, F32{}), F32{} + 65535.0f);
}

/// Stores round(samples cut to 0..65535) of the first three samples.
template <class Round>
int ConvertColours(PixelRows<const float, 4> src, PixelRows<std::uint16_t, 4> dst, IppiSize size,
                   Round round) {
    return ForRows(
        size,
        [round](std::ptrdiff_t pixels, const float* from, std::uint16_t* to) {
            MapPixels<kLanes / 4>(
                pixels,
                [round](F32 samples, Narrow16 old) {
                    const I32 whole = round(Cut16(samples));
                    return KeepFourth(__builtin_convertvector(whole, Narrow16), old);
                },
                Colours(to), Colours(from), Colours(to));
        },
        src, dst);
}

}  // namespace

int ippiConvert_8u16u_C4R(const std::uint8_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                          IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint16_t* to) {
            for (std::ptrdiff_t i = 0; i < 4 * pixels; ++i) to[i] = from[i];
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

int ippiConvert_16u8u_C4R(const std::uint16_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                          IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint16_t* from, std::uint8_t* to) {
            for (std::ptrdiff_t i = 0; i < 4 * pixels; ++i)
                to[i] = static_cast<std::uint8_t>(from[i] < 255 ? from[i] : 255);
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

int ippiConvert_16u32f_AC4R(const std::uint16_t* src, int srcStep, float* dst, int dstStep,
                            IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint16_t* from, float* to) {
            MapPixels<kLanes / 4>(
                pixels,
                [](Narrow16 samples, F32 old) {
                    return KeepFourth(ToFloat(__builtin_convertvector(samples, I32)), old);
                },
                Colours(to), Colours(from), Colours(to));
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

int ippiConvert_32f16u_AC4R(const float* src, int srcStep, std::uint16_t* dst, int dstStep,
                            IppiSize size, int roundMode) {
    const auto from = Pixels<4>(src, srcStep);
    const auto to = Pixels<4>(dst, dstStep);
    if (const int status = CheckImages({from, to}, size)) return status;
    switch (roundMode) {
        case kRoundTowardZero:
            return ConvertColours(from, to, size, [](F32 v) { return ToInt(v); });
        case kRoundNearestEven:
            // Above 2^23 a float has no fraction: the addition rounds, to even as all arithmetic,
            // and leaves the number in the low bits.
            return ConvertColours(from, to, size,
                                  [](F32 v) { return (I32)(v + 8388608.0f) & 0xFFFF; });
        case kRoundFinancial:
            // The fraction is exact; adding 0.5 first would round 0.49999997 up.
            return ConvertColours(from, to, size, [](F32 v) {
                const I32 whole = ToInt(v);
                return whole - (I32)(v - ToFloat(whole) >= 0.5f);
            });
        default:
            return kStatusBadArgument;
    }
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
