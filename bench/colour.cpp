// The colour primitives, one row each.
#include "bench/rows.h"
#include "primitives/colour_twist.h"
#include "primitives/gray.h"
#include "primitives/hsv.h"
#include "primitives/reduce_bits.h"
#include "primitives/ycbcr.h"

namespace brushworks::bench {
namespace {

constexpr float kTwist[3][4] = {
    {0.8f, 0.1f, 0.1f, 0.0f}, {0.1f, 0.7f, 0.2f, 0.01f}, {0.2f, 0.2f, 0.6f, -0.01f}};
constexpr float kGray[3] = {0.3f, 0.6f, 0.1f};
constexpr int kNoNoise = 0, kLevels = 6;
constexpr int kNoDither = 0, kStucki = 3, kOrdered = 4;

}  // namespace

std::vector<Operation> Colour() {
    return {
        ToImage<u8, 4, u8, 4>("ippiColorTwist32f_8u_AC4R", ippiColorTwist32f_8u_AC4R, kTwist),
        ToImage<float, 4, float, 4>("ippiColorTwist_32f_AC4R", ippiColorTwist_32f_AC4R, kTwist),
        InPlace<float, 4>("ippiColorTwist_32f_AC4IR", ippiColorTwist_32f_AC4IR, kTwist),
        ToImage<u8, 4, u8, 4>("ippiRGBToHSV_8u_AC4R", ippiRGBToHSV_8u_AC4R),
        ToImage<u8, 4, u8, 4>("ippiHSVToRGB_8u_AC4R", ippiHSVToRGB_8u_AC4R),
        ToImage<u16, 4, u16, 4>("ippiRGBToHSV_16u_AC4R", ippiRGBToHSV_16u_AC4R),
        ToImage<u16, 4, u16, 4>("ippiHSVToRGB_16u_AC4R", ippiHSVToRGB_16u_AC4R),
        ToImage<u8, 3, u8, 1>("ippiRGBToGray_8u_C3C1R", ippiRGBToGray_8u_C3C1R),
        ToImage<u8, 4, u8, 1>("ippiRGBToGray_8u_AC4C1R", ippiRGBToGray_8u_AC4C1R),
        ToImage<u8, 4, u8, 1>("ippiColorToGray_8u_AC4C1R", ippiColorToGray_8u_AC4C1R, kGray),
        ToImage<u8, 4, u8, 2>("ippiBGRToYCbCr422_8u_AC4C2R", ippiBGRToYCbCr422_8u_AC4C2R),
        ToImage<u8, 2, u8, 4>("ippiYCbCr422ToBGR_8u_C2C4R", ippiYCbCr422ToBGR_8u_C2C4R, u8{255}),
        ToImage<u8, 4, u8, 4>("ippiReduceBits_8u_AC4R, plain", ippiReduceBits_8u_AC4R, kNoNoise,
                              kNoDither, kLevels),
        ToImage<u8, 4, u8, 4>("ippiReduceBits_8u_AC4R, ordered", ippiReduceBits_8u_AC4R, kNoNoise,
                              kOrdered, kLevels),
        ToImage<u8, 4, u8, 4>("ippiReduceBits_8u_AC4R, Stucki", ippiReduceBits_8u_AC4R, kNoNoise,
                              kStucki, kLevels),
        ToImage<u16, 4, u16, 4>("ippiReduceBits_16u_AC4R, plain", ippiReduceBits_16u_AC4R, kNoNoise,
                                kNoDither, kLevels),
    };
}

}  // namespace brushworks::bench
