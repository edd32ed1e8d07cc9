#include "primitives/gray.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiRGBToGray_8u_C3C1R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))
BRUSHWORKS_PRIMITIVE(ippiRGBToGray_8u_AC4C1R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))
BRUSHWORKS_PRIMITIVE(ippiColorToGray_8u_AC4C1R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, const float coefficients[3]),
                     (src, srcStep, dst, dstStep, size, coefficients))

}  // namespace brushworks
