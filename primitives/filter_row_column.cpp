// The tables of the row and column filters.
#include "primitives/filter_row_column.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_FILTER_8U                                                              \
    (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size, \
     const std::int32_t* kernel, int kernelSize, int anchor, int divisor),                \
        (src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor, divisor)
#define BRUSHWORKS_FILTER_32F                                                                    \
    (const float* src, int srcStep, float* dst, int dstStep, IppiSize size, const float* kernel, \
     int kernelSize, int anchor),                                                                \
        (src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor)

BRUSHWORKS_PRIMITIVE(ippiFilterRow_8u_C1R, BRUSHWORKS_FILTER_8U)
BRUSHWORKS_PRIMITIVE(ippiFilterRow_8u_C4R, BRUSHWORKS_FILTER_8U)
BRUSHWORKS_PRIMITIVE(ippiFilterRow_8u_AC4R, BRUSHWORKS_FILTER_8U)
BRUSHWORKS_PRIMITIVE(ippiFilterRow_32f_C1R, BRUSHWORKS_FILTER_32F)
BRUSHWORKS_PRIMITIVE(ippiFilterRow_32f_C4R, BRUSHWORKS_FILTER_32F)
BRUSHWORKS_PRIMITIVE(ippiFilterRow_32f_AC4R, BRUSHWORKS_FILTER_32F)
BRUSHWORKS_PRIMITIVE(ippiFilterColumn_8u_C1R, BRUSHWORKS_FILTER_8U)
BRUSHWORKS_PRIMITIVE(ippiFilterColumn_8u_C4R, BRUSHWORKS_FILTER_8U)
BRUSHWORKS_PRIMITIVE(ippiFilterColumn_8u_AC4R, BRUSHWORKS_FILTER_8U)
BRUSHWORKS_PRIMITIVE(ippiFilterColumn_32f_C1R, BRUSHWORKS_FILTER_32F)
BRUSHWORKS_PRIMITIVE(ippiFilterColumn_32f_C4R, BRUSHWORKS_FILTER_32F)
BRUSHWORKS_PRIMITIVE(ippiFilterColumn_32f_AC4R, BRUSHWORKS_FILTER_32F)

}  // namespace brushworks
