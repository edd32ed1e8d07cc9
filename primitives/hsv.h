// Hue, saturation and value of 8-bit and 16-bit pixels, and back.
//
// The samples are taken in memory order: the first plays the part that red plays in the textbook,
// so that hue 0 is the first sample's colour. Of a converted pixel the samples are hue, saturation
// and value, each over the whole range of the type (M is its largest value). The fourth sample is
// not written. What holds for all primitives is told in copy.h.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// V is the largest sample mx, S is (mx - mn) / mx on the scale of M, H the sixth of the wheel plus
/// the place within it on the scale of M. A gray pixel has H 0 and S 0.
int ippiRGBToHSV_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size);
int ippiRGBToHSV_16u_AC4R(const std::uint16_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                          IppiSize size);

/// The way back. V is not rescaled: 8-bit values widened to 16 bits come back as such.
int ippiHSVToRGB_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size);
int ippiHSVToRGB_16u_AC4R(const std::uint16_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                          IppiSize size);

/// Both of them for whole pixels, whose fourth samples are copied. In place is allowed.
int HsvFromBytes_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                     IppiSize size);
int BytesFromHsv_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                     IppiSize size);

}  // namespace brushworks
