// Replacing what lies below a threshold.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// In place: a sample below its channel's threshold takes its channel's value. NaN is not below.
int ippiThreshold_LTVal_32f_C4IR(float* image, int step, IppiSize size, const float thresholds[4],
                                 const float values[4]);

}  // namespace brushworks
