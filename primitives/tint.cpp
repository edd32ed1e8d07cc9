#include "primitives/tint.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(TintBytes_C4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, const float color[3], AlphaAt alpha),
                     (src, srcStep, dst, dstStep, size, color, alpha))
BRUSHWORKS_PRIMITIVE(TintFloats_C4R,
                     (const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                      const float color[3], AlphaAt alpha),
                     (src, srcStep, dst, dstStep, size, color, alpha))
BRUSHWORKS_PRIMITIVE(FadeBytes_C4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, int fade, AlphaAt alpha),
                     (src, srcStep, dst, dstStep, size, fade, alpha))
BRUSHWORKS_PRIMITIVE(FadeFloats_C4R,
                     (const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                      float fade, AlphaAt alpha),
                     (src, srcStep, dst, dstStep, size, fade, alpha))
BRUSHWORKS_PRIMITIVE(PremultiplyBytes_A4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))
BRUSHWORKS_PRIMITIVE(PremultiplyFloats_C4R,
                     (const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                      AlphaAt alpha),
                     (src, srcStep, dst, dstStep, size, alpha))

}  // namespace brushworks
