// Filters whose kernel is fixed: sharpening and the box mean. The mask lies around the output's own
// place; what it covers outside the region the caller sees to. Source and destination do not
// overlap. Results are rounded to nearest, ties to even. The rest is told in copy.h.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// Twice the sample less an eighth of each of its eight neighbours, cut to 0..255.
int ippiFilterSharpen_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                              IppiSize size);

// The masks of the box mean.
inline constexpr int kMask3x3 = 33;
inline constexpr int kMask5x5 = 55;

/// The mean of the mask's samples; -5 for any other mask.
int ippiFilterLowpass_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                             IppiSize size, int mask);

}  // namespace brushworks
