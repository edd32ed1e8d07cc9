// Vector loops over the pixels of rows, whatever the types and layouts of their samples: a body
// says what one block of pixels becomes, and MapPixels runs it over rows, their last pixels
// included.
#pragma once

#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// A vector of a given number of elements.
template <class Sample, int Count>
struct VectorOfType {
    using Element = std::remove_const_t<Sample>;
    using type [[gnu::vector_size(Count * sizeof(Element))]] = Element;
};
template <class Sample, int Count>
using VectorOf = typename VectorOfType<Sample, Count>::type;

/// A row of pixels as a vector loop sees it. The last Missing samples of the last pixel lie behind
/// what the row may touch.
template <class Sample, int Channels, int Missing>
struct VectorRow {
    Sample* row;

    static constexpr bool kEndsInsideAPixel = Missing > 0;

    template <int Count>
    VectorOf<Sample, Count * Channels> Get(std::ptrdiff_t x) const {
        return Load<VectorOf<Sample, Count * Channels>>(row + Channels * x);
    }
    template <int Count>
    void Put(std::ptrdiff_t x, VectorOf<Sample, Count * Channels> pixels) const {
        Store(row + Channels * x, pixels);
    }
    /// The last pixels of the row, fewer than Count or with samples missing; the rest reads as 0.
    template <int Count>
    VectorOf<Sample, Count * Channels> GetLast(std::ptrdiff_t x, std::ptrdiff_t pixels) const {
        VectorOf<Sample, Count * Channels> v{};
        std::memcpy(&v, row + Channels * x, LastBytes(pixels));
        return v;
    }
    template <int Count>
    void PutLast(std::ptrdiff_t x, std::ptrdiff_t pixels,
                 VectorOf<Sample, Count * Channels> v) const {
        std::memcpy(row + Channels * x, &v, LastBytes(pixels));
    }

  private:
    static std::size_t LastBytes(std::ptrdiff_t pixels) {
        return static_cast<std::size_t>(Channels * pixels - Missing) * sizeof(Sample);
    }
};

/// All samples of the pixels.
template <int Channels, class Sample>
inline VectorRow<Sample, Channels, 0> Whole(Sample* row) {
    return {row};
}
/// The first three of four samples.
template <class Sample>
inline VectorRow<Sample, 4, 1> Colours(Sample* row) {
    return {row};
}
/// The one channel that the pointer stands at.
template <int Channels, class Sample>
inline VectorRow<Sample, Channels, Channels - 1> Channel(Sample* row) {
    return {row};
}

/// Puts result(pixels of each source...) to a row, Count pixels at a time. A source may be the
/// destination, as it is where some of its samples must keep their values.
template <int Count, class Result, class To, class... From>
inline void MapPixels(std::ptrdiff_t pixels, Result result, To to, From... from) {
    constexpr int kBehind = To::kEndsInsideAPixel || (From::kEndsInsideAPixel || ...);
    std::ptrdiff_t x = 0;
    for (; x + Count + kBehind <= pixels; x += Count)
        to.template Put<Count>(x, result(from.template Get<Count>(x)...));
    if (const std::ptrdiff_t rest = pixels - x; rest > 0)
        to.template PutLast<Count>(x, rest, result(from.template GetLast<Count>(x, rest)...));
}

template <class Vector, std::size_t... I>
inline Vector KeepFourthOf(Vector pixels, Vector old, std::index_sequence<I...>) {
    // A constant choice, not a shuffle: SSE2 has no shuffle of bytes or words for it.
    const decltype(pixels == old) colours = {(I % 4 < 3 ? -1 : 0)...};
    return colours ? pixels : old;
}
/// Four-channel pixels with the fourth samples of `old`.
template <class Vector>
inline Vector KeepFourth(Vector pixels, Vector old) {
    return KeepFourthOf(pixels, old, Indexes<Vector>{});
}

/// A vector that repeats `period` values.
template <class Vector, class Sample>
inline Vector Repeat(const Sample* values, int period) {
    constexpr int kCount = sizeof(Vector) / sizeof(Vector{}[0]);
    Vector v{};
    for (int i = 0; i < kCount; ++i) v[i] = values[i % period];
    return v;
}

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
