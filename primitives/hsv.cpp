#include "primitives/hsv.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BYTES                                                                              \
    (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size), \
        (src, srcStep, dst, dstStep, size)
#define WORDS                                                                                \
    (const std::uint16_t* src, int srcStep, std::uint16_t* dst, int dstStep, IppiSize size), \
        (src, srcStep, dst, dstStep, size)

BRUSHWORKS_PRIMITIVE(ippiRGBToHSV_8u_AC4R, BYTES)
BRUSHWORKS_PRIMITIVE(ippiRGBToHSV_16u_AC4R, WORDS)
BRUSHWORKS_PRIMITIVE(ippiHSVToRGB_8u_AC4R, BYTES)
BRUSHWORKS_PRIMITIVE(ippiHSVToRGB_16u_AC4R, WORDS)
BRUSHWORKS_PRIMITIVE(HsvFromBytes_C4R, BYTES)
BRUSHWORKS_PRIMITIVE(BytesFromHsv_C4R, BYTES)

}  // namespace brushworks
