#include "primitives/colour_twist.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiColorTwist32f_8u_AC4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, const float twist[3][4]),
                     (src, srcStep, dst, dstStep, size, twist))
BRUSHWORKS_PRIMITIVE(ippiColorTwist_32f_AC4R,
                     (const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                      const float twist[3][4]),
                     (src, srcStep, dst, dstStep, size, twist))
BRUSHWORKS_PRIMITIVE(ippiColorTwist_32f_AC4IR,
                     (float* image, int step, IppiSize size, const float twist[3][4]),
                     (image, step, size, twist))
BRUSHWORKS_PRIMITIVE(TwistBytes_C4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, const float twist[3][4], AlphaAt alpha),
                     (src, srcStep, dst, dstStep, size, twist, alpha))
BRUSHWORKS_PRIMITIVE(TwistUnit_C4R,
                     (const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                      const float twist[3][4], AlphaAt alpha),
                     (src, srcStep, dst, dstStep, size, twist, alpha))

}  // namespace brushworks
