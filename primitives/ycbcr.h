// Blue, green, red and packed 4:2:2, by Rec. 601 in the studio range.
//
// Packed 4:2:2 has two bytes a pixel: Y0 Cb Y1 Cr for each pair. A row of odd width ends in Y Cb.
// All results are cut to 0..255 and rounded to the nearest whole number, ties to even. What holds
// for all primitives is told in copy.h.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// A pair shares the mean of its pixels' chroma; a last odd pixel stores its own Cb.
int ippiBGRToYCbCr422_8u_AC4C2R(const std::uint8_t* src, int srcStep, std::uint8_t* dst,
                                int dstStep, IppiSize size);
/// The fourth sample becomes `alpha`. A last odd pixel takes the Cr of the pair before it, or 128
/// where there is none.
int ippiYCbCr422ToBGR_8u_C2C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                               IppiSize size, std::uint8_t alpha);

}  // namespace brushworks
