// Filling of a connected area of one colour.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// What a fill has done.
struct IppiFilledRegion {
    std::int64_t area;  ///< pixels that changed
    std::uint8_t value[3];
    IppiRect rect;  ///< around the pixels that changed; empty, at the seed, if there are none
};

/// The bytes that `buffer` must have for any picture of that size; -5 where an int does not hold
/// them.
int ippiFloodFillGetSize(IppiSize size, int* bufferSize);

/// All pixels that are connected to the seed, side by side, through pixels of the seed's colour
/// take the new value. A seed that has it already fills nothing; a seed outside the image gives -5.
/// What holds for all primitives is told in copy.h.
int ippiFloodFill_4Con_8u_C3IR(std::uint8_t* image, int step, IppiSize size, IppiPoint seed,
                               const std::uint8_t newValue[3], IppiFilledRegion* region,
                               std::uint8_t* buffer);

}  // namespace brushworks
