// The tables of the widening copies.
#include "primitives/border.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_BORDER                                                                    \
    (const std::uint8_t* src, int srcStep, IppiSize srcSize, std::uint8_t* dst, int dstStep, \
     IppiSize dstSize, int top, int left),                                                   \
        (src, srcStep, srcSize, dst, dstStep, dstSize, top, left)

BRUSHWORKS_PRIMITIVE(ippiCopyReplicateBorder_8u_C1R, BRUSHWORKS_BORDER)
BRUSHWORKS_PRIMITIVE(ippiCopyReplicateBorder_8u_C3R, BRUSHWORKS_BORDER)
BRUSHWORKS_PRIMITIVE(ippiCopyReplicateBorder_8u_C4R, BRUSHWORKS_BORDER)

}  // namespace brushworks
