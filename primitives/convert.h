// Changes of the sample type. Values are kept, never rescaled; a narrower type cuts.
#pragma once

#include "primitives/types.h"

namespace brushworks {

int ippiConvert_8u16u_C4R(const std::uint8_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                          IppiSize size);
int ippiConvert_16u8u_C4R(const std::uint16_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                          IppiSize size);

// The fourth sample of the destination is not written.
int ippiConvert_16u32f_AC4R(const std::uint16_t* src, int srcStep, float* dst, int dstStep,
                            IppiSize size);

// How floats become integers.
inline constexpr int kRoundTowardZero = 0;
inline constexpr int kRoundNearestEven = 1;
inline constexpr int kRoundFinancial = 2;  ///< nearest, a tie away from zero

/// The result is cut to 0..65535, and NaN gives 0. The fourth sample is not written.
int ippiConvert_32f16u_AC4R(const float* src, int srcStep, std::uint16_t* dst, int dstStep,
                            IppiSize size, int roundMode);

}  // namespace brushworks
