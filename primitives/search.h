// Searching vectors.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// The largest value of a vector, and the first index that has it.
int ippsMaxIndx_32s(const std::int32_t* vector, int length, std::int32_t* largest, int* index);

}  // namespace brushworks
