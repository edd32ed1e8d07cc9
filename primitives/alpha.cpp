// The tables of the alpha primitives.
#include "primitives/alpha.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiAlphaPremul_8u_AC4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))
BRUSHWORKS_PRIMITIVE(ippiAlphaComp_8u_AC4R,
                     (const std::uint8_t* a, int aStep, const std::uint8_t* b, int bStep,
                      std::uint8_t* dst, int dstStep, IppiSize size, int operation),
                     (a, aStep, b, bStep, dst, dstStep, size, operation))

}  // namespace brushworks
