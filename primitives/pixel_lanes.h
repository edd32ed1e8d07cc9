// Arithmetic on vectors of bytes that needs more than eight bits: the samples are split into even
// and odd ones, 16 bits each, which takes a mask and a shift and no shuffle, so that it is fast in
// every instruction set. Two more names treat the bytes as four-channel pixels.
#pragma once

#include "primitives/pixel_loops.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Bytes in 16-bit lanes.
struct WideBytes {
    U16 even, odd;
};

inline WideBytes Widen(U8 bytes) {
    const auto pairs = (U16)bytes;
    return {pairs & 0xFF, pairs >> 8};
}

/// The product of two bytes over 255 in the upper byte of each lane; the lower one is not cleared.
inline U16 Over255InUpper(U16 t) {
    return t + (t >> 8) + 1;
}

/// Each byte times its factor, over 255: (t + (t >> 8) + 1) >> 8 of the product t.
inline U8 TimesOver255(WideBytes bytes, WideBytes factors) {
    const U16 even = Over255InUpper(bytes.even * factors.even) >> 8;
    const U16 odd = Over255InUpper(bytes.odd * factors.odd) & 0xFF00;
    return (U8)(even | odd);
}

/// The sum, at most 255.
inline U8 CutSum(U8 a, U8 b) {
    const U8 sum = a + b;
    return sum | (U8)(sum < a);
}

/// Sample 3 of each pixel, once for every sample.
inline U16 Alpha(U8 pixels) {
    const U32 alpha = (U32)pixels >> 24;
    return (U16)(alpha | alpha << 16);
}
/// The same pixels with 255 in sample 3.
inline U8 Opaque(U8 pixels) {
    return (U8)((U32)pixels | 0xFF000000u);
}

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
