// Colour to one gray channel.
//
// Gray is (c0 s0 + c1 s1 + c2 s2) / 4096, rounded down, with whole-numbered coefficients. What
// holds for all primitives is told in copy.h.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// The coefficients 1225, 2404, 467: those of 0.299, 0.587, 0.114 for the samples in memory order.
int ippiRGBToGray_8u_C3C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                           IppiSize size);
int ippiRGBToGray_8u_AC4C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size);
/// The coefficients int(c 4096 + 0.5) of the three given ones, NaN counting as 0. The result is cut
/// to 0..255. -5 where their magnitudes sum to more than 16.
int ippiColorToGray_8u_AC4C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                              IppiSize size, const float coefficients[3]);

}  // namespace brushworks
