// Permuting the channels of a pixel. What holds for all primitives is told in copy.h.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// In place: channel k takes the old channel order[k], each from 0 to 3; an index may repeat.
int ippiSwapChannels_8u_C4IR(std::uint8_t* image, int step, IppiSize size, const int order[4]);

/// From one image to another, or in place: the channels of each pixel in reverse order.
int ReverseBytes_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                     IppiSize size);

}  // namespace brushworks
