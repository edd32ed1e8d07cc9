// What stands at both ends of window_sums.h: lines made from the samples of rows, and sums stored
// as samples.
#pragma once

#include "primitives/pixel_loops.h"
#include "primitives/window_sums.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// In vectors: for a few kilobytes at a time they beat memcpy, which some machines do by microcode.
inline void CopyFloats(const float* from, std::ptrdiff_t count, float* to) {
    MapPixels<kLanes>(
        count, [](F32 v) { return v; }, Whole<1>(to), Whole<1>(from));
}

inline void ToFloatLanes(const std::uint8_t* from, std::ptrdiff_t count, float* line) {
    for (std::ptrdiff_t i = 0; i < count; ++i) line[i] = static_cast<float>(from[i]);
}
inline void ToFloatLanes(const float* from, std::ptrdiff_t count, float* line) {
    CopyFloats(from, count, line);
}

/// Each sample with the one `distance` further on, of which `seconds` exist.
inline void ToPairLanes(const std::uint8_t* first, const std::uint8_t* second, std::ptrdiff_t count,
                        std::ptrdiff_t seconds, std::int32_t* line) {
    std::ptrdiff_t i = 0;
    for (; i < count && i < seconds; ++i) line[i] = first[i] | second[i] << 16;
    for (; i < count; ++i) line[i] = first[i];
}

/// Sums as rows of bytes for MapPixels: kVectorBytes of them are Count pixels. The sums' line holds
/// whole blocks, so that the last ones are read like the others.
template <class Lane, class ToByte>
struct SumsAsBytes {
    const Lane* sums;
    ToByte toByte;

    static constexpr bool kEndsInsideAPixel = false;

    template <int Count>
    U8 Get(std::ptrdiff_t x) const {
        using Vector [[gnu::vector_size(kVectorBytes)]] = Lane;
        const Lane* from = sums + x * (kVectorBytes / Count);
        const auto bytes = [&](int i) { return toByte(Load<Vector>(from + i * kLanes)); };
        return NarrowToBytes(bytes(0), bytes(1), bytes(2), bytes(3));
    }
    template <int Count>
    U8 GetLast(std::ptrdiff_t x, std::ptrdiff_t) const {
        return Get<Count>(x);
    }
};

/// Stores sums as bytes; with KeepsFourth the fourth sample of each pixel keeps its value, and the
/// last one may not exist. toByte makes I32 in 0..255 of a vector of sums.
template <bool KeepsFourth, class Lane, class ToByte>
inline void StoreSums(const Lane* sums, std::ptrdiff_t count, std::uint8_t* to, ToByte toByte) {
    const SumsAsBytes<Lane, ToByte> bytes{sums, toByte};
    if constexpr (KeepsFourth)
        MapPixels<kLanes>((count + 3) / 4, [](U8 v, U8 old) { return KeepFourth(v, old); },
                          Colours(to), bytes, Colours(to));
    else
        MapPixels<kVectorBytes>(
            count, [](U8 v) { return v; }, Whole<1>(to), bytes);
}

/// Stores float sums as they are.
template <bool KeepsFourth>
inline void StoreSums(const float* sums, std::ptrdiff_t count, float* to) {
    if constexpr (KeepsFourth)
        MapPixels<kLanes / 4>((count + 3) / 4, [](F32 v, F32 old) { return KeepFourth(v, old); },
                              Colours(to), Whole<4>(sums), Colours(to));
    else
        CopyFloats(sums, count, to);
}

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
