// Fewer levels of each colour, with or without dither.
//
// Of `levels` L, from 2 to M + 1 (M is the type's largest value), level k from 0 to L - 1 has the
// value (k M + (L - 1) / 2) / (L - 1), in integers. Each colour is treated by itself; the fourth
// sample is not written. What holds for all primitives is told in copy.h; besides, -5 answers an
// argument outside its range and -9 a lack of scratch memory.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// `dither`: 0 none, 1 Floyd-Steinberg, 2 Jarvis-Judice-Ninke, 3 Stucki (error diffusion, each row
/// from the left), 4 ordered by an 8 by 8 Bayer matrix that starts at the region's corner.
/// `noise`, 0 to 100: each sample is moved, within 0 to M, by a random offset of up to plus or
/// minus half of that percentage of one level's step; the same offsets come at each call. `dst` may
/// be `src`.
int ippiReduceBits_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                           IppiSize size, int noise, int dither, int levels);
int ippiReduceBits_16u_AC4R(const std::uint16_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                            IppiSize size, int noise, int dither, int levels);

}  // namespace brushworks
