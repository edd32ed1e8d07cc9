// Bodies of the conversions; built once for each variant.
#include "primitives/convert.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// The sample cut to the range of 16 bits; NaN gives 0.
inline float Cut16(float sample) {
    const float above = sample > 0.0f ? sample : 0.0f;
    return above < 65535.0f ? above : 65535.0f;
}

/// Stores round(sample cut to 0..65535) of the first three samples.
template <class Round>
int ConvertColours(PixelRows<const float, 4> src, PixelRows<std::uint16_t, 4> dst, IppiSize size,
                   Round round) {
    return ForRows(
        size,
        [round](std::ptrdiff_t pixels, const float* from, std::uint16_t* to) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x)
                for (int c = 0; c < 3; ++c)
                    to[4 * x + c] = static_cast<std::uint16_t>(round(Cut16(from[4 * x + c])));
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
            for (std::ptrdiff_t x = 0; x < pixels; ++x)
                for (int c = 0; c < 3; ++c) to[4 * x + c] = from[4 * x + c];
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
            return ConvertColours(from, to, size, [](float v) { return static_cast<int>(v); });
        case kRoundNearestEven:
            // Above 2^23 a float has no fraction: the addition rounds, to even as all arithmetic.
            return ConvertColours(from, to, size, [](float v) {
                constexpr float kNoFraction = 8388608.0f;
                return static_cast<int>(v + kNoFraction - kNoFraction);
            });
        case kRoundFinancial:
            // The fraction is exact; adding 0.5 first would round 0.49999997 up.
            return ConvertColours(from, to, size, [](float v) {
                const int whole = static_cast<int>(v);
                return whole + (v - static_cast<float>(whole) >= 0.5f);
            });
        default:
            return kStatusBadArgument;
    }
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
