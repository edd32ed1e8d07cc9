#include "primitives/ycbcr.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiBGRToYCbCr422_8u_AC4C2R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))
BRUSHWORKS_PRIMITIVE(ippiYCbCr422ToBGR_8u_C2C4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, std::uint8_t alpha),
                     (src, srcStep, dst, dstStep, size, alpha))

}  // namespace brushworks
