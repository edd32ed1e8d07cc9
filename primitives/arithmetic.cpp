// The tables of the integer arithmetic.
#include "primitives/arithmetic.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_ADD                                                                    \
    (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size, \
     int scale),                                                                          \
        (src, srcStep, dst, dstStep, size, scale)

BRUSHWORKS_PRIMITIVE(ippiAdd_8u_C1IRSfs, BRUSHWORKS_ADD)
BRUSHWORKS_PRIMITIVE(ippiAdd_8u_C4IRSfs, BRUSHWORKS_ADD)
BRUSHWORKS_PRIMITIVE(ippiMulCScale_8u_C1IR,
                     (std::uint8_t constant, std::uint8_t* image, int step, IppiSize size),
                     (constant, image, step, size))
BRUSHWORKS_PRIMITIVE(ippiMulCScale_8u_C4IR,
                     (const std::uint8_t constants[4], std::uint8_t* image, int step,
                      IppiSize size),
                     (constants, image, step, size))
BRUSHWORKS_PRIMITIVE(ippiMulC_16u_AC4IRSfs,
                     (const std::uint16_t* constants, std::uint16_t* image, int step, IppiSize size,
                      int scale),
                     (constants, image, step, size, scale))
BRUSHWORKS_PRIMITIVE(ippiNot_8u_C1IR, (std::uint8_t * image, int step, IppiSize size),
                     (image, step, size))

}  // namespace brushworks
