// The tables of the copies.
#include "primitives/copy.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_COPY(Sample)                                                \
    (const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size), \
        (src, srcStep, dst, dstStep, size)

BRUSHWORKS_PRIMITIVE(ippiCopy_8u_C1R, BRUSHWORKS_COPY(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiCopy_8u_C4R, BRUSHWORKS_COPY(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiCopy_32f_C1R, BRUSHWORKS_COPY(float))
BRUSHWORKS_PRIMITIVE(ippiCopy_32f_C4R, BRUSHWORKS_COPY(float))
BRUSHWORKS_PRIMITIVE(ippiCopy_8u_C1C3R, BRUSHWORKS_COPY(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiCopy_8u_C1C4R, BRUSHWORKS_COPY(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiCopy_8u_C4C1R, BRUSHWORKS_COPY(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiCopy_8u_C4CR, BRUSHWORKS_COPY(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiCopy_32f_C1C4R, BRUSHWORKS_COPY(float))
BRUSHWORKS_PRIMITIVE(ippiCopy_32f_C4C1R, BRUSHWORKS_COPY(float))
BRUSHWORKS_PRIMITIVE(ippiCopy_32f_C4CR, BRUSHWORKS_COPY(float))
BRUSHWORKS_PRIMITIVE(ippiCopy_8u_AC4C3R, BRUSHWORKS_COPY(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiCopy_8u_C3AC4R, BRUSHWORKS_COPY(std::uint8_t))

}  // namespace brushworks
