// Types and status values that all primitives share.
#pragma once

#include <cstdint>

namespace brushworks {

/// Size of a region in pixels.
struct IppiSize {
    std::int32_t width;
    std::int32_t height;
};

/// A position in pixels.
struct IppiPoint {
    std::int32_t x;
    std::int32_t y;
};

/// A rectangle in pixels.
struct IppiRect {
    std::int32_t x;
    std::int32_t y;
    std::int32_t width;
    std::int32_t height;
};

// What a primitive returns. The image is untouched whenever the status is not kStatusOk.
inline constexpr int kStatusOk = 0;
inline constexpr int kStatusBadArgument = -5;    ///< an argument outside its domain
inline constexpr int kStatusSizeError = -6;      ///< a width, height or kernel size below 1
inline constexpr int kStatusNullPointer = -8;    ///< a null pointer; tested before anything else
inline constexpr int kStatusNoMemory = -9;       ///< scratch memory could not be had
inline constexpr int kStatusStepError = -14;     ///< a step below 1 or too small for the row
inline constexpr int kStatusDivideByZero = -51;  ///< a divisor of 0

}  // namespace brushworks
