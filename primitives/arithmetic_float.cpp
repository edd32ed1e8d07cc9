// The tables of the float arithmetic.
#include "primitives/arithmetic_float.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_ADD                                                       \
    (const float* src, int srcStep, float* dst, int dstStep, IppiSize size), \
        (src, srcStep, dst, dstStep, size)
#define BRUSHWORKS_CONSTANTS \
    (const float* constants, float* image, int step, IppiSize size), (constants, image, step, size)
#define BRUSHWORKS_CONSTANTS_TO                                                      \
    (const float* constants, const float* src, int srcStep, float* dst, int dstStep, \
     IppiSize size),                                                                 \
        (constants, src, srcStep, dst, dstStep, size)
#define BRUSHWORKS_IN_PLACE (float* image, int step, IppiSize size), (image, step, size)

BRUSHWORKS_PRIMITIVE(ippiAdd_32f_C1IR, BRUSHWORKS_ADD)
BRUSHWORKS_PRIMITIVE(ippiAdd_32f_C4IR, BRUSHWORKS_ADD)
BRUSHWORKS_PRIMITIVE(ippiMulC_32f_C1IR, (float constant, float* image, int step, IppiSize size),
                     (constant, image, step, size))
BRUSHWORKS_PRIMITIVE(ippiMulC_32f_C4IR, BRUSHWORKS_CONSTANTS)
BRUSHWORKS_PRIMITIVE(ippiMulC_32f_AC4IR, BRUSHWORKS_CONSTANTS)
BRUSHWORKS_PRIMITIVE(ippiMulC_32f_AC4R, BRUSHWORKS_CONSTANTS_TO)
BRUSHWORKS_PRIMITIVE(ippiAddC_32f_AC4IR, BRUSHWORKS_CONSTANTS)
BRUSHWORKS_PRIMITIVE(ippiAddC_32f_AC4R, BRUSHWORKS_CONSTANTS_TO)
BRUSHWORKS_PRIMITIVE(ippiSqr_32f_C4IR, BRUSHWORKS_IN_PLACE)
BRUSHWORKS_PRIMITIVE(ippiSqrt_32f_C4IR, BRUSHWORKS_IN_PLACE)

}  // namespace brushworks
