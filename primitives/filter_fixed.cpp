// The tables of the filters with fixed kernels.
#include "primitives/filter_fixed.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiFilterSharpen_8u_AC4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size),
                     (src, srcStep, dst, dstStep, size))
BRUSHWORKS_PRIMITIVE(ippiFilterLowpass_8u_C1R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, int mask),
                     (src, srcStep, dst, dstStep, size, mask))

}  // namespace brushworks
