// The median under a rectangular mask.
#pragma once

#include "primitives/types.h"

namespace brushworks {

// Each sample becomes the middle one of the sorted samples of its channel under the mask, whose
// pixel `anchor` stands on it. All pixels under the mask are read, outside the region too: the
// caller sees to it that they are there. The destination lies apart from what is read. A mask size
// below 1 gives -6; an even one, an anchor outside the mask and a mask of 2^31 pixels or more give
// -5, scratch memory that cannot be had -9.
int ippiFilterMedian_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size, IppiSize maskSize, IppiPoint anchor);
int ippiFilterMedian_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                             IppiSize size, IppiSize maskSize, IppiPoint anchor);

}  // namespace brushworks
