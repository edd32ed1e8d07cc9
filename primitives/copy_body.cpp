// Bodies of the copies; built once for each variant.
#include "primitives/copy.h"

#include "primitives/pixel_loops.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Copies whole pixels. An image may be copied onto itself.
template <int Channels, class Sample>
int CopyPixels(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const Sample* from, Sample* to) {
            std::memmove(to, from, static_cast<std::size_t>(pixels) * Channels * sizeof(Sample));
        },
        Pixels<Channels>(src, srcStep), Pixels<Channels>(dst, dstStep));
}

/// Copies one channel, sample by sample.
template <int From, int To, class Sample>
int CopyChannel(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const Sample* from, Sample* to) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x) to[To * x] = from[From * x];
        },
        Pixels<From>(src, srcStep), Pixels<To>(dst, dstStep));
}

// Bytes between others are written together with those others, which keep their values: single
// bytes one by one take more time than whole pixels.

/// Pixels of four bytes with `samples` in their first.
inline U8 WithFirst(U8 pixels, U32 samples) {
    return (U8)(((U32)pixels & ~0xFFu) | samples);
}

using Bytes16 = VectorOf<std::uint8_t, 16>;

template <int Part, std::size_t... I>
inline Bytes16 SpreadBy3(Bytes16 samples, Bytes16 old, std::index_sequence<I...>) {
    constexpr int kFirst = 16 * Part;
    return __builtin_shufflevector(samples, old,
                                   ((kFirst + I) % 3 == 0 ? (kFirst + I) / 3 : 16 + I)...);
}
/// Puts 16 samples into one channel of 16 pixels of three.
template <std::size_t... Part>
inline void StoreBy3(std::uint8_t* to, Bytes16 samples, std::index_sequence<Part...>) {
    (Store(to + 16 * Part,
           SpreadBy3<Part>(samples, Load<Bytes16>(to + 16 * Part), Indexes<Bytes16>{})),
     ...);
}

template <std::size_t... I>
inline Bytes16 ColoursOf(Bytes16 colours, Bytes16 old, std::index_sequence<I...>) {
    return __builtin_shufflevector(colours, old, (I % 4 < 3 ? I / 4 * 3 + I % 4 : 16 + I)...);
}
/// Four pixels with the first twelve bytes of `colours` and the fourth samples of `old`.
inline Bytes16 WithColours(Bytes16 old, Bytes16 colours) {
    return ColoursOf(colours, old, Indexes<Bytes16>{});
}

template <std::size_t... I>
inline Bytes16 WithoutFourthOf(Bytes16 pixels, std::index_sequence<I...>) {
    return __builtin_shufflevector(pixels, pixels, (I < 12 ? I / 3 * 4 + I % 3 : 0)...);
}
/// The colours of four pixels in the first twelve bytes.
inline Bytes16 WithoutFourth(Bytes16 pixels) {
    return WithoutFourthOf(pixels, Indexes<Bytes16>{});
}

#if defined(__SSSE3__)
constexpr bool kShufflesBytes = true;
#else
constexpr bool kShufflesBytes = false;
#endif

}  // namespace

int ippiCopy_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                    IppiSize size) {
    return CopyPixels<1>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                    IppiSize size) {
    return CopyPixels<4>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_32f_C1R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
    return CopyPixels<1>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
    return CopyPixels<4>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_8u_C1C3R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            std::ptrdiff_t x = 0;
            if constexpr (kShufflesBytes)
                for (; x + 16 < pixels; x += 16)
                    StoreBy3(to + 3 * x, Load<Bytes16>(from + x), std::make_index_sequence<3>{});
            for (; x < pixels; ++x) to[3 * x] = from[x];
        },
        Pixels<1>(src, srcStep), Pixels<3>(dst, dstStep));
}

int ippiCopy_8u_C1C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            std::ptrdiff_t x = 0;
            for (; x + 1 < pixels; ++x)
                StorePixel(to + 4 * x, (LoadPixel(to + 4 * x) & ~0xFFu) | from[x]);
            to[4 * x] = from[x];
        },
        Pixels<1>(src, srcStep), Pixels<4>(dst, dstStep));
}

int ippiCopy_8u_C4C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size) {
    return CopyChannel<4, 1>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_8u_C4CR(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                     IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            MapPixels<kLanes>(
                pixels, [](U8 samples, U8 old) { return WithFirst(old, (U32)samples & 0xFF); },
                Channel<4>(to), Channel<4>(from), Channel<4>(to));
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

int ippiCopy_32f_C1C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
    return CopyChannel<1, 4>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_32f_C4C1R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
    return CopyChannel<4, 1>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_32f_C4CR(const float* src, int srcStep, float* dst, int dstStep, IppiSize size) {
    return CopyChannel<4, 4>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_8u_AC4C3R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            std::ptrdiff_t x = 0;
            // What a store writes too many, four bytes or one, the next one overwrites.
            if constexpr (kShufflesBytes)
                for (; x + 5 < pixels; x += 4)
                    Store(to + 3 * x, WithoutFourth(Load<Bytes16>(from + 4 * x)));
            for (; x + 1 < pixels; ++x) StorePixel(to + 3 * x, LoadPixel(from + 4 * x));
            for (int c = 0; c < 3; ++c) to[3 * x + c] = from[4 * x + c];
        },
        Pixels<4>(src, srcStep), Pixels<3>(dst, dstStep));
}

int ippiCopy_8u_C3AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            std::ptrdiff_t x = 0;
            // A load of four pixels reads four bytes behind them, one of a pixel reads one.
            if constexpr (kShufflesBytes)
                for (; x + 5 < pixels; x += 4)
                    Store(to + 4 * x,
                          WithColours(Load<Bytes16>(to + 4 * x), Load<Bytes16>(from + 3 * x)));
            for (; x + 1 < pixels; ++x)
                StorePixel(to + 4 * x, (LoadPixel(to + 4 * x) & 0xFF000000u) |
                                           (LoadPixel(from + 3 * x) & 0xFFFFFFu));
            for (int c = 0; c < 3; ++c) to[4 * x + c] = from[3 * x + c];
        },
        Pixels<3>(src, srcStep), Pixels<4>(dst, dstStep));
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
