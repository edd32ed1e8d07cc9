// Body of the threshold; built once for each variant.
#include "primitives/threshold.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {

int ippiThreshold_LTVal_32f_C4IR(float* image, int step, IppiSize size, const float thresholds[4],
                                 const float values[4]) {
    if (!thresholds || !values) return kStatusNullPointer;
    const float t0 = thresholds[0], t1 = thresholds[1], t2 = thresholds[2], t3 = thresholds[3];
    const float v0 = values[0], v1 = values[1], v2 = values[2], v3 = values[3];
    return ForRows(
        size,
        [=](std::ptrdiff_t pixels, float* row) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x) {
                float* s = row + 4 * x;
                s[0] = s[0] < t0 ? v0 : s[0];
                s[1] = s[1] < t1 ? v1 : s[1];
                s[2] = s[2] < t2 ? v2 : s[2];
                s[3] = s[3] < t3 ? v3 : s[3];
            }
        },
        Pixels<4>(image, step));
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
