// The tables of the dilations.
#include "primitives/morphology.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_DILATE(Sample)                                                             \
    (const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size, int borderType, \
     const IppiMorphologyState* state),                                                       \
        (src, srcStep, dst, dstStep, size, borderType, state)

BRUSHWORKS_PRIMITIVE(ippiDilateBorderReplicate_8u_C1R, BRUSHWORKS_DILATE(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiDilateBorderReplicate_8u_C4R, BRUSHWORKS_DILATE(std::uint8_t))
BRUSHWORKS_PRIMITIVE(ippiDilateBorderReplicate_32f_C1R, BRUSHWORKS_DILATE(float))
BRUSHWORKS_PRIMITIVE(ippiDilateBorderReplicate_32f_C4R, BRUSHWORKS_DILATE(float))

}  // namespace brushworks
