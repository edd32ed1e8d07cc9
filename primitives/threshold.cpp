// The table of the threshold.
#include "primitives/threshold.h"

#include "primitives/primitive_table.h"

namespace brushworks {

BRUSHWORKS_PRIMITIVE(ippiThreshold_LTVal_32f_C4IR,
                     (float* image, int step, IppiSize size, const float* thresholds,
                      const float* values),
                     (image, step, size, thresholds, values))

}  // namespace brushworks
