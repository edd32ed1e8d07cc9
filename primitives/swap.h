// Permuting the channels of a pixel.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// In place: channel k takes the old channel order[k], each from 0 to 3; an index may repeat.
int ippiSwapChannels_8u_C4IR(std::uint8_t* image, int step, IppiSize size, const int order[4]);

}  // namespace brushworks
