// Premultiplication and compositing of 8-bit pixels whose sample 3 is alpha. Products of two bytes
// are taken over 255 as (t + (t >> 8) + 1) >> 8.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// Samples 0, 1 and 2 times alpha; alpha is copied. In place is allowed.
int ippiAlphaPremul_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size);

// How ippiAlphaComp lays A over B. Alpha is alphaA + alphaB (1 - alphaA) in both.
inline constexpr int kAlphaOver = 0;               ///< A alphaA + B alphaB (1 - alphaA)
inline constexpr int kAlphaOverPremultiplied = 6;  ///< A + B (1 - alphaA)

/// dst = a over b, each sample at most 255. The destination may be a or b. Another operation gives
/// -5.
int ippiAlphaComp_8u_AC4R(const std::uint8_t* a, int aStep, const std::uint8_t* b, int bStep,
                          std::uint8_t* dst, int dstStep, IppiSize size, int operation);

}  // namespace brushworks
