// Float pixels of four channels as they lie in vectors: one sample for all four places, and the
// place of alpha, which layouts have first or last.
#pragma once

#include "primitives/blend.h"
#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Where a layout has a channel, the channels being counted from the end where alpha is not, and
/// the channel of a place likewise. Alpha is channel 3.
template <AlphaAt kAlpha>
constexpr int PlaceOf(int channel) {
    return kAlpha == AlphaAt::kFirst ? 3 - channel : channel;
}

template <int kSample, std::size_t... I>
inline F32 SpreadOf(F32 pixels, std::index_sequence<I...>) {
    return __builtin_shufflevector(pixels, pixels, (I / 4 * 4 + kSample)...);
}
/// One sample of each pixel in all four places of it.
template <int kSample>
inline F32 Spread(F32 pixels) {
    return SpreadOf<kSample>(pixels, Indexes<F32>{});
}

template <int kSample, std::size_t... I>
inline F32 WithSampleOf(F32 pixels, F32 other, std::index_sequence<I...>) {
    const I32 place = {(I % 4 == kSample ? -1 : 0)...};
    return place ? other : pixels;
}
/// The pixels with one sample of each from `other`.
template <int kSample>
inline F32 WithSample(F32 pixels, F32 other) {
    return WithSampleOf<kSample>(pixels, other, Indexes<F32>{});
}

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
