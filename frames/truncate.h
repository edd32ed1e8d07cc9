// Float to integer for every float.
#pragma once

#include <cstdint>

namespace brushworks {

/// The integer part; what does not fit is cut to the nearest that does, and NaN is 0.
inline std::int32_t Truncate(float value) {
    if (value != value) return 0;
    if (value <= -2147483648.0f) return INT32_MIN;
    return value < 2147483648.0f ? static_cast<std::int32_t>(value) : INT32_MAX;
}

}  // namespace brushworks
