// Filling with a constant, which comes before the image.
#pragma once

#include "primitives/types.h"

namespace brushworks {

int ippiSet_8u_C1R(std::uint8_t value, std::uint8_t* dst, int step, IppiSize size);
int ippiSet_32f_C1R(float value, float* dst, int step, IppiSize size);

/// Every pixel takes four values.
int ippiSet_8u_C4R(const std::uint8_t values[4], std::uint8_t* dst, int step, IppiSize size);
int ippiSet_32f_C4R(const float values[4], float* dst, int step, IppiSize size);

/// One channel of four, the one that the pointer stands at.
int ippiSet_8u_C4CR(std::uint8_t value, std::uint8_t* dst, int step, IppiSize size);
int ippiSet_32f_C4CR(float value, float* dst, int step, IppiSize size);

}  // namespace brushworks
