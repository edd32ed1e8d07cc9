// The tables of the general filters.
#include "primitives/filter_general.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_FILTER(Sample)                                                                  \
    (const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size, const float* kernel, \
     IppiSize kernelSize, IppiPoint anchor),                                                       \
        (src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor)

BRUSHWORKS_PRIMITIVE(ippiFilter32f_8u_C1R, BRUSHWORKS_FILTER(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiFilter32f_8u_C3R, BRUSHWORKS_FILTER(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiFilter32f_8u_C4R, BRUSHWORKS_FILTER(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiFilter_32f_C4R, BRUSHWORKS_FILTER(float))

}  // namespace brushworks
