// The commonest resize, down to exactly half by nearest or linear, on four channels: every
// destination pixel then takes one of four source pixels, or their mean. Of bytes integers give it
// to the same bytes as the general way; of floats the same sums, without a row of them in between.
#pragma once

#include "primitives/pixel_lanes.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// The second of each two pixels.
inline U8 SecondOfTwo(U8 low, U8 high) {
    return (U8)Odd((U32)low, (U32)high);
}

/// The sums of each two pixels.
inline WideBytes SumOfTwo(U8 low, U8 high) {
    const WideBytes first = Widen((U8)Even((U32)low, (U32)high));
    const WideBytes second = Widen(SecondOfTwo(low, high));
    return {first.even + second.even, first.odd + second.odd};
}

/// A quarter of sums of four bytes, ties to even.
inline U16 Quarter(U16 sum) {
    return (sum + 1 + (sum >> 2 & 1)) >> 2;
}

inline U8 MeanOfFour(U8 low, U8 high, U8 lowBelow, U8 highBelow) {
    const WideBytes above = SumOfTwo(low, high), below = SumOfTwo(lowBelow, highBelow);
    return (U8)(Quarter(above.even + below.even) | Quarter(above.odd + below.odd) << 8);
}

/// One row of `width` pixels from two rows of twice as many, or by nearest from the second alone.
inline void HalveRows(const std::uint8_t* upper, const std::uint8_t* lower, int width, bool nearest,
                      std::uint8_t* to) {
    const auto halve = [nearest](const std::uint8_t* above, const std::uint8_t* below) {
        const auto low = Load<U8>(below), high = Load<U8>(below + kVectorBytes);
        if (nearest) return SecondOfTwo(low, high);
        return MeanOfFour(Load<U8>(above), Load<U8>(above + kVectorBytes), low, high);
    };
    std::ptrdiff_t x = 0;
    for (; x + kLanes <= width; x += kLanes) Store(to + 4 * x, halve(upper + 8 * x, lower + 8 * x));
    if (x == width) return;
    const auto rest = static_cast<std::size_t>(4 * (width - x));
    std::uint8_t above[2 * kVectorBytes] = {}, below[2 * kVectorBytes] = {};
    std::memcpy(above, upper + 8 * x, 2 * rest);
    std::memcpy(below, lower + 8 * x, 2 * rest);
    const U8 last = halve(above, below);
    std::memcpy(to + 4 * x, &last, rest);
}

inline void HalveRows(const float* upper, const float* lower, int width, bool nearest, float* to) {
    using Pixel [[gnu::vector_size(16)]] = float;
    for (int x = 0; x < width; ++x, upper += 8, lower += 8, to += 4) {
        const auto column = [&](int i) {
            return 0.5f * Load<Pixel>(upper + i) + 0.5f * Load<Pixel>(lower + i);
        };
        Store(to, nearest ? Load<Pixel>(lower + 4) : 0.5f * column(0) + 0.5f * column(4));
    }
}

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
