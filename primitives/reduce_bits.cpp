#include "primitives/reduce_bits.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiReduceBits_8u_AC4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, int noise, int dither, int levels),
                     (src, srcStep, dst, dstStep, size, noise, dither, levels))
BRUSHWORKS_PRIMITIVE(ippiReduceBits_16u_AC4R,
                     (const std::uint16_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                      IppiSize size, int noise, int dither, int levels),
                     (src, srcStep, dst, dstStep, size, noise, dither, levels))

}  // namespace brushworks
