// The tables of the edge-preserving smoothing.
#include "primitives/smooth.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_SMOOTH                                                                 \
    (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size, \
     const SmoothWeights* weights),                                                       \
        (src, srcStep, dst, dstStep, size, weights)

BRUSHWORKS_PRIMITIVE(SmoothRows_8u_C1R, BRUSHWORKS_SMOOTH)
BRUSHWORKS_PRIMITIVE(SmoothRows_8u_AC4R, BRUSHWORKS_SMOOTH)
BRUSHWORKS_PRIMITIVE(SmoothColumns_8u_C1R, BRUSHWORKS_SMOOTH)
BRUSHWORKS_PRIMITIVE(SmoothColumns_8u_AC4R, BRUSHWORKS_SMOOTH)

}  // namespace brushworks
