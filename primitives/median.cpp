// The tables of the medians.
#include "primitives/median.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_MEDIAN                                                                 \
    (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size, \
     IppiSize maskSize, IppiPoint anchor),                                                \
        (src, srcStep, dst, dstStep, size, maskSize, anchor)

BRUSHWORKS_PRIMITIVE(ippiFilterMedian_8u_C4R, BRUSHWORKS_MEDIAN)
BRUSHWORKS_PRIMITIVE(ippiFilterMedian_8u_AC4R, BRUSHWORKS_MEDIAN)

}  // namespace brushworks
