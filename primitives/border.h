// Widening an image by repeating its edge.
#pragma once

#include "primitives/types.h"

namespace brushworks {

// The source stands at (left, top) of the destination; every pixel around it takes the nearest
// source pixel. The source may already lie there: then the border grows around it in place. A
// negative offset and a destination without room for the source give -5.
int ippiCopyReplicateBorder_8u_C1R(const std::uint8_t* src, int srcStep, IppiSize srcSize,
                                   std::uint8_t* dst, int dstStep, IppiSize dstSize, int top,
                                   int left);
int ippiCopyReplicateBorder_8u_C3R(const std::uint8_t* src, int srcStep, IppiSize srcSize,
                                   std::uint8_t* dst, int dstStep, IppiSize dstSize, int top,
                                   int left);
int ippiCopyReplicateBorder_8u_C4R(const std::uint8_t* src, int srcStep, IppiSize srcSize,
                                   std::uint8_t* dst, int dstStep, IppiSize dstSize, int top,
                                   int left);

}  // namespace brushworks
