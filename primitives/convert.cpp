// The tables of the conversions.
#include "primitives/convert.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_CONVERT(From, To)                                     \
    (const From* src, int srcStep, To* dst, int dstStep, IppiSize size), \
        (src, srcStep, dst, dstStep, size)

BRUSHWORKS_PRIMITIVE(ippiConvert_8u16u_C4R, BRUSHWORKS_CONVERT(std::uint8_t, std::uint16_t))
BRUSHWORKS_PRIMITIVE(ippiConvert_16u8u_C4R, BRUSHWORKS_CONVERT(std::uint16_t, std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiConvert_16u32f_AC4R, BRUSHWORKS_CONVERT(std::uint16_t, float))
BRUSHWORKS_PRIMITIVE(ippiConvert_32f16u_AC4R,
                     (const float* src, int srcStep, std::uint16_t* dst, int dstStep, IppiSize size,
                      int roundMode),
                     (src, srcStep, dst, dstStep, size, roundMode))

}  // namespace brushworks
