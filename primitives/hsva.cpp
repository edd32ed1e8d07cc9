#include "primitives/hsva.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define FLOATS                                                                              \
    (const float* src, int srcStep, float* dst, int dstStep, IppiSize size, AlphaAt alpha), \
        (src, srcStep, dst, dstStep, size, alpha)
#define BYTES                                                                              \
    (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size), \
        (src, srcStep, dst, dstStep, size)

BRUSHWORKS_PRIMITIVE(HsvaFromFloats_C4R, FLOATS)
BRUSHWORKS_PRIMITIVE(FloatsFromHsva_C4R, FLOATS)
BRUSHWORKS_PRIMITIVE(HsvaFromBytes_A4R, BYTES)
BRUSHWORKS_PRIMITIVE(BytesFromHsva_A4R, BYTES)

}  // namespace brushworks
