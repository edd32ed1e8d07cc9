#include "primitives/mode_filter.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ModeFilter_8u_C4R,
                     (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, IppiSize mask),
                     (src, srcStep, dst, dstStep, size, mask))

}  // namespace brushworks
