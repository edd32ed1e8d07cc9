// Vectors as wide as the instruction set that is being built, over the compiler's own vector types,
// so that one text serves every variant and gives the same bytes in each. A lane is 32 bits; a
// vector of lanes holds kLanes pixels of one channel. Like body.h all of it stands in the anonymous
// namespace of the variant, and only body files include it.
#pragma once

#ifdef __SSE2__
#include <immintrin.h>
#endif

#include <utility>

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

#if defined(__AVX512BW__)
inline constexpr int kVectorBytes = 64;
#elif defined(__AVX2__)
inline constexpr int kVectorBytes = 32;
#else
inline constexpr int kVectorBytes = 16;
#endif
inline constexpr int kLanes = kVectorBytes / 4;

using U8 [[gnu::vector_size(kVectorBytes)]] = std::uint8_t;
using U16 [[gnu::vector_size(kVectorBytes)]] = std::uint16_t;
using U32 [[gnu::vector_size(kVectorBytes)]] = std::uint32_t;
using I16 [[gnu::vector_size(kVectorBytes)]] = std::int16_t;
using I32 [[gnu::vector_size(kVectorBytes)]] = std::int32_t;
using F32 [[gnu::vector_size(kVectorBytes)]] = float;

/// Memory needs no alignment. A cast between vector types, `(U32)v`, keeps the bits.
template <class Vector>
inline Vector Load(const void* from) {
    Vector v;
    std::memcpy(&v, from, sizeof v);
    return v;
}
template <class Vector>
inline void Store(void* to, Vector v) {
    std::memcpy(to, &v, sizeof v);
}

/// The lesser and the greater of each pair; `b` where a float of the pair is NaN.
template <class Vector>
inline Vector Min(Vector a, Vector b) {
    return a < b ? a : b;
}
template <class Vector>
inline Vector Max(Vector a, Vector b) {
    return a > b ? a : b;
}
// For floats the compiler makes a comparison and a blend of the text above, which costs more
// than the one instruction of that very meaning, named here; with AVX-512 blends are cheap.
#if defined(__AVX2__) && !defined(__AVX512BW__)
template <>
inline F32 Min(F32 a, F32 b) {
    return _mm256_min_ps(a, b);
}
template <>
inline F32 Max(F32 a, F32 b) {
    return _mm256_max_ps(a, b);
}
#elif defined(__SSE2__) && !defined(__AVX512BW__)
template <>
inline F32 Min(F32 a, F32 b) {
    return _mm_min_ps(a, b);
}
template <>
inline F32 Max(F32 a, F32 b) {
    return _mm_max_ps(a, b);
}
#endif

inline F32 ToFloat(I32 v) {
    return __builtin_convertvector(v, F32);
}
/// Towards zero, as a cast of one sample does.
inline I32 ToInt(F32 v) {
    return __builtin_convertvector(v, I32);
}

/// Of each two neighbouring 16-bit lanes the sum of their products, in 32 bits.
inline I32 SumOfPairs(I16 a, I16 b) {
#if defined(__AVX512BW__)
    return (I32)_mm512_madd_epi16((__m512i)a, (__m512i)b);
#elif defined(__AVX2__)
    return (I32)_mm256_madd_epi16((__m256i)a, (__m256i)b);
#elif defined(__SSE2__)
    return (I32)_mm_madd_epi16((__m128i)a, (__m128i)b);
#else
    const auto low = [](I32 v) { return (I32)((U32)v << 16) >> 16; };
    return low((I32)a) * low((I32)b) + ((I32)a >> 16) * ((I32)b >> 16);
#endif
}

/// The upper half of each product.
inline U16 UpperProduct(U16 a, U16 b) {
#if defined(__AVX512BW__)
    return (U16)_mm512_mulhi_epu16((__m512i)a, (__m512i)b);
#elif defined(__AVX2__)
    return (U16)_mm256_mulhi_epu16((__m256i)a, (__m256i)b);
#elif defined(__SSE2__)
    return (U16)_mm_mulhi_epu16((__m128i)a, (__m128i)b);
#else
    const auto low = ((U32)a & 0xFFFF) * ((U32)b & 0xFFFF);
    const auto high = ((U32)a >> 16) * ((U32)b >> 16);
    return (U16)(low >> 16 | (high & 0xFFFF0000u));
#endif
}

#if defined(__AVX512BW__)
/// The elements of `low` and `high`, taken as one sequence, at the places given modulo 64.
inline U16 PickOfTwo(U16 low, U16 high, U16 places) {
    return (U16)_mm512_permutex2var_epi16((__m512i)low, (__m512i)places, (__m512i)high);
}
#elif defined(__AVX2__)
/// In each 16 bytes, those of `table` at the places given modulo 16; 0 for places from 128 on.
inline U8 PickOfSixteen(U8 table, U8 places) {
    return (U8)_mm256_shuffle_epi8((__m256i)table, (__m256i)places);
}
/// Whether any byte is at least `limit`.
inline bool AnyFrom(U8 bytes, int limit) {
    const U8 from = (U8)(Max(bytes, U8{} + static_cast<std::uint8_t>(limit)) == bytes);
    return _mm256_movemask_epi8((__m256i)from) != 0;
}
/// a - b of signed bytes, at least -128.
inline U8 CutDifference(U8 a, U8 b) {
    return (U8)_mm256_subs_epi8((__m256i)a, (__m256i)b);
}
#elif defined(__SSSE3__)
inline U8 PickOfSixteen(U8 table, U8 places) {
    return (U8)_mm_shuffle_epi8((__m128i)table, (__m128i)places);
}
inline bool AnyFrom(U8 bytes, int limit) {
    const U8 from = (U8)(Max(bytes, U8{} + static_cast<std::uint8_t>(limit)) == bytes);
    return _mm_movemask_epi8((__m128i)from) != 0;
}
inline U8 CutDifference(U8 a, U8 b) {
    return (U8)_mm_subs_epi8((__m128i)a, (__m128i)b);
}
#endif

/// Float to 8 bits: cut to 0..255, nearest, ties to even, NaN to 0. Adding 1.5 * 2^23 leaves the
/// rounded number in the low bits.
inline I32 R8(F32 v) {
    v = Min(Max(v, F32{}), F32{} + 255.0f);
    return (I32)(v + 12582912.0f) & 255;
}

// Shuffles of two vectors a and b, taken as one sequence of elements, a's first.

template <class Vector>
using Indexes = std::make_index_sequence<sizeof(Vector) / sizeof(Vector{}[0])>;

template <class Vector, std::size_t... I>
inline Vector EvenOf(Vector a, Vector b, std::index_sequence<I...>) {
    return __builtin_shufflevector(a, b, (2 * I)...);
}
template <class Vector, std::size_t... I>
inline Vector OddOf(Vector a, Vector b, std::index_sequence<I...>) {
    return __builtin_shufflevector(a, b, (2 * I + 1)...);
}
template <class Vector, std::size_t... I>
inline Vector ZipLowOf(Vector a, Vector b, std::index_sequence<I...>) {
    return __builtin_shufflevector(a, b, (I / 2 + (I % 2) * sizeof...(I))...);
}
template <class Vector, std::size_t... I>
inline Vector ZipHighOf(Vector a, Vector b, std::index_sequence<I...>) {
    return __builtin_shufflevector(a, b, (sizeof...(I) / 2 + I / 2 + (I % 2) * sizeof...(I))...);
}

/// Elements 0, 2, 4, ... and 1, 3, 5, ... of the two.
template <class Vector>
inline Vector Even(Vector a, Vector b) {
    return EvenOf(a, b, Indexes<Vector>{});
}
template <class Vector>
inline Vector Odd(Vector a, Vector b) {
    return OddOf(a, b, Indexes<Vector>{});
}
/// a0 b0 a1 b1 ... of the lower halves, and of the upper ones: the way back from Even and Odd.
template <class Vector>
inline Vector ZipLow(Vector a, Vector b) {
    return ZipLowOf(a, b, Indexes<Vector>{});
}
template <class Vector>
inline Vector ZipHigh(Vector a, Vector b) {
    return ZipHighOf(a, b, Indexes<Vector>{});
}

/// The low bytes of four vectors of lanes, in order.
inline U8 NarrowToBytes(I32 a, I32 b, I32 c, I32 d) {
    return Even((U8)Even((U16)a, (U16)b), (U8)Even((U16)c, (U16)d));
}

/// The first three samples of kLanes pixels.
struct Planes {
    I32 s0, s1, s2;
};

inline Planes Split(U32 v) {
    return {(I32)(v & 255), (I32)(v >> 8 & 255), (I32)(v >> 16 & 255)};
}
inline Planes Split(const std::uint8_t* pixels) {
    return Split(Load<U32>(pixels));
}
inline Planes Split(const std::uint16_t* pixels) {
    const auto a = Load<U32>(pixels), b = Load<U32>(pixels + 2 * kLanes);
    const U32 low = Even(a, b), high = Odd(a, b);
    return {(I32)(low & 0xFFFF), (I32)(low >> 16), (I32)(high & 0xFFFF)};
}

/// Pixels of three samples, which lie in their type's range, and the fourth of `old`.
inline U32 Joined(U32 old, Planes p) {
    return (old & 0xFF000000u) | (U32)p.s0 | (U32)p.s1 << 8 | (U32)p.s2 << 16;
}
/// Writes the three samples; the fourth keeps its value.
inline void Join(std::uint8_t* pixels, Planes p) {
    Store(pixels, Joined(Load<U32>(pixels), p));
}
inline void Join(std::uint16_t* pixels, Planes p) {
    const U32 fourth = Odd(Load<U32>(pixels), Load<U32>(pixels + 2 * kLanes)) & 0xFFFF0000u;
    const U32 low = (U32)p.s0 | (U32)p.s1 << 16, high = fourth | (U32)p.s2;
    Store(pixels, ZipLow(low, high));
    Store(pixels + 2 * kLanes, ZipHigh(low, high));
}

/// Runs `block(from, to, x)` over a row of AC4 pixels, kBlock of them at a time. The last block
/// goes through a copy, so that nothing behind the third sample of the last pixel is read or
/// written: callers may point one sample into their pixels, and then the fourth is not theirs.
template <int kBlock, class Sample, class Block>
inline void ForBlocksAC4(const Sample* src, Sample* dst, int width, Block block) {
    int x = 0;
    for (; x < width - kBlock; x += kBlock) block(src + 4 * x, dst + 4 * x, x);
    Sample from[4 * kBlock] = {}, to[4 * kBlock] = {};
    const std::size_t rest = (4 * static_cast<std::size_t>(width - x) - 1) * sizeof(Sample);
    std::memcpy(from, src + 4 * x, rest);
    std::memcpy(to, dst + 4 * x, rest);
    block(from, to, x);
    std::memcpy(dst + 4 * x, to, rest);
}

}  // namespace
}  // namespace brushworks::BRUSHWORKS_VARIANT
