// Body of the search; built once for each variant.
#include "primitives/search.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {

// Blocks small enough to stay in the nearest cache are searched for their largest value alone,
// which vectors do well; only a block that has a larger value than all before it is walked again.
int ippsMaxIndx_32s(const std::int32_t* vector, int length, std::int32_t* largest, int* index) {
    constexpr int kBlock = 256;
    if (!vector || !largest || !index) return kStatusNullPointer;
    if (length < 1) return kStatusSizeError;
    std::int32_t best = vector[0];
    int at = 0;
    for (int start = 0; start < length;) {
        const int end = length - start > kBlock ? start + kBlock : length;
        std::int32_t top = vector[start];
        for (int i = start; i < end; ++i) top = vector[i] > top ? vector[i] : top;
        if (top > best) {
            best = top;
            for (at = start; vector[at] != top;) ++at;
        }
        start = end;
    }
    *largest = best;
    *index = at;
    return kStatusOk;
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
