// The tables of the channel permutations.
#include "primitives/swap.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiSwapChannels_8u_C4IR,
                     (std::uint8_t * image, int step, IppiSize size, const int order[4]),
                     (image, step, size, order))
BRUSHWORKS_PRIMITIVE(ReverseBytes_C4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))

}  // namespace brushworks
