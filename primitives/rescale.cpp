#include "primitives/rescale.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define FROM_BYTES                                                                  \
    (const std::uint8_t* src, int srcStep, float* dst, int dstStep, IppiSize size), \
        (src, srcStep, dst, dstStep, size)
#define FROM_FLOATS                                                                 \
    (const float* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size), \
        (src, srcStep, dst, dstStep, size)

BRUSHWORKS_PRIMITIVE(UnitFromBytes_C4R, FROM_BYTES)
BRUSHWORKS_PRIMITIVE(UnitFromBytesReversed_C4R, FROM_BYTES)
BRUSHWORKS_PRIMITIVE(BytesFromUnit_C4R, FROM_FLOATS)
BRUSHWORKS_PRIMITIVE(BytesFromUnitReversed_C4R, FROM_FLOATS)

}  // namespace brushworks
