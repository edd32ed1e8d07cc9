#include "primitives/hsv.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiRGBToHSV_8u_AC4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))
BRUSHWORKS_PRIMITIVE(ippiRGBToHSV_16u_AC4R,
                     (const std::uint16_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))
BRUSHWORKS_PRIMITIVE(ippiHSVToRGB_8u_AC4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))
BRUSHWORKS_PRIMITIVE(ippiHSVToRGB_16u_AC4R,
                     (const std::uint16_t* src, int srcStep, std::uint16_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))

}  // namespace brushworks
