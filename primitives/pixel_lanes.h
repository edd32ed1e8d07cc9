// Four-channel pixels of bytes as vectors of words, sample 0 in each word's low byte. Arithmetic
// that needs more than eight bits splits the samples into even and odd ones, 16 bits each, which
// takes a mask and a shift and no shuffle, so that it is fast in every instruction set.
#pragma once

#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// A vector of which memory holds the first `bytes` bytes only; the rest reads as 0.
template <class Vector>
inline Vector LoadPart(const void* from, std::size_t bytes) {
    Vector v{};
    std::memcpy(&v, from, bytes);
    return v;
}

/// Writes result(vector of each source...) to a row of four-channel pixels of bytes, kLanes pixels
/// at a time. A source may be the destination. Missing tells how many samples of the last pixel lie
/// behind what the row may touch.
template <int Missing = 0, class Result, class... Sources>
inline void MapPixels(std::ptrdiff_t pixels, Result result, std::uint8_t* to,
                      const Sources*... from) {
    std::ptrdiff_t x = 0;
    for (; x + kLanes + (Missing > 0) <= pixels; x += kLanes)
        Store(to + 4 * x, result(Load<U32>(from + 4 * x)...));
    if (x == pixels) return;
    const auto rest = static_cast<std::size_t>(4 * (pixels - x) - Missing);
    const U32 last = result(LoadPart<U32>(from + 4 * x, rest)...);
    std::memcpy(to + 4 * x, &last, rest);
}

/// The samples of pixels in 16-bit lanes.
struct WideSamples {
    U16 even, odd;  // samples 0 and 2, samples 1 and 3
};

inline WideSamples Widen(U32 pixels) {
    const auto pairs = (U16)pixels;
    return {pairs & 0xFF, pairs >> 8};
}
/// The way back, for samples up to 255.
inline U32 Narrow(WideSamples s) {
    return (U32)(s.even | s.odd << 8);
}

/// Sample 3 of each pixel, once for every sample.
inline U16 Alpha(U32 pixels) {
    const U32 alpha = pixels >> 24;
    return (U16)(alpha | alpha << 16);
}

/// The product of two bytes over 255: (t + (t >> 8) + 1) >> 8. It gives a for a product of a and
/// 255.
inline U16 Over255(U16 t) {
    return (t + (t >> 8) + 1) >> 8;
}

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
