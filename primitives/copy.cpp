#include "primitives/copy.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiCopy_8u_C1R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))
BRUSHWORKS_PRIMITIVE(ippiCopy_8u_C4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))

}  // namespace brushworks
