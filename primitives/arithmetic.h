// Sums, products and complements of integer samples, in place.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// dst = src + dst, shifted right by `scale` (0 and up) with ties to even, at most 255.
int ippiAdd_8u_C1IRSfs(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size, int scale);
int ippiAdd_8u_C4IRSfs(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size, int scale);

/// Each sample t times its constant, over 255: (t + (t >> 8) + 1) >> 8. Constants come first.
int ippiMulCScale_8u_C1IR(std::uint8_t constant, std::uint8_t* image, int step, IppiSize size);
int ippiMulCScale_8u_C4IR(const std::uint8_t constants[4], std::uint8_t* image, int step,
                          IppiSize size);

/// The first three samples times their constants, shifted right by `scale` (0 and up) with ties to
/// even, at most 65535. The fourth constant is not read.
int ippiMulC_16u_AC4IRSfs(const std::uint16_t* constants, std::uint16_t* image, int step,
                          IppiSize size, int scale);

/// The complement of all bits.
int ippiNot_8u_C1IR(std::uint8_t* image, int step, IppiSize size);

}  // namespace brushworks
