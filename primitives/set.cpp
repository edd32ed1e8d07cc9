// The tables of the fills.
#include "primitives/set.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_SET_ONE(Sample) \
    (Sample value, Sample * dst, int step, IppiSize size), (value, dst, step, size)
#define BRUSHWORKS_SET_FOUR(Sample) \
    (const Sample values[4], Sample* dst, int step, IppiSize size), (values, dst, step, size)

BRUSHWORKS_PRIMITIVE(ippiSet_8u_C1R, BRUSHWORKS_SET_ONE(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiSet_32f_C1R, BRUSHWORKS_SET_ONE(float))
BRUSHWORKS_PRIMITIVE(ippiSet_8u_C4R, BRUSHWORKS_SET_FOUR(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiSet_32f_C4R, BRUSHWORKS_SET_FOUR(float))
BRUSHWORKS_PRIMITIVE(ippiSet_8u_C4CR, BRUSHWORKS_SET_ONE(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiSet_32f_C4CR, BRUSHWORKS_SET_ONE(float))

}  // namespace brushworks
