// The table of the channel permutation.
#include "primitives/swap.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiSwapChannels_8u_C4IR,
                     (std::uint8_t * image, int step, IppiSize size, const int order[4]),
                     (image, step, size, order))

}  // namespace brushworks
