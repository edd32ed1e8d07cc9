// Bodies of the change between bytes and floats of 0 to 1; built once for each variant.
#include "primitives/rescale.h"

#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Pixels that are reversed at a time on their way to floats, into a buffer in the first-level
/// cache: the loops on either side of it are ones that the compiler vectorises.
constexpr std::ptrdiff_t kBlock = 256;

void FromBytes(std::ptrdiff_t samples, const std::uint8_t* __restrict from, float* __restrict to) {
    for (std::ptrdiff_t i = 0; i < samples; ++i) to[i] = from[i] * 0.003921569f;
}

template <std::size_t... I>
inline F32 ReverseEachFour(F32 v, std::index_sequence<I...>) {
    return __builtin_shufflevector(v, v, (I / 4 * 4 + 3 - I % 4)...);
}

/// The cut is spelled in vectors, since the compiler makes masks of it in a loop over samples.
template <bool kReversed>
inline I32 ByteLanes(const float* from) {
    const F32 cut = Min(Max(Load<F32>(from), F32{}), F32{} + 1.0f);
    const F32 scaled = cut * 255.0f + 0.5f;
    return ToInt(kReversed ? ReverseEachFour(scaled, Indexes<F32>{}) : scaled);
}

/// A vector of bytes from four of floats.
template <bool kReversed>
inline void FromFloatBlock(const float* from, std::uint8_t* to) {
    Store(to, NarrowToBytes(ByteLanes<kReversed>(from), ByteLanes<kReversed>(from + kLanes),
                            ByteLanes<kReversed>(from + 2 * kLanes),
                            ByteLanes<kReversed>(from + 3 * kLanes)));
}

template <bool kReversed>
int FromFloats(const float* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const float* from, std::uint8_t* to) {
            constexpr std::ptrdiff_t kSamples = kVectorBytes;
            std::ptrdiff_t samples = 4 * pixels;
            for (; samples >= kSamples; samples -= kSamples, from += kSamples, to += kSamples)
                FromFloatBlock<kReversed>(from, to);
            const auto rest = static_cast<std::size_t>(samples);
            float floats[kSamples] = {};
            std::uint8_t bytes[kSamples];
            std::memcpy(floats, from, rest * sizeof(float));
            FromFloatBlock<kReversed>(floats, bytes);
            std::memcpy(to, bytes, rest);
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

void Reverse(std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
    for (std::ptrdiff_t x = 0; x < pixels; ++x)
        StorePixel(to + 4 * x, __builtin_bswap32(LoadPixel(from + 4 * x)));
}

}  // namespace

int UnitFromBytes_C4R(const std::uint8_t* src, int srcStep, float* dst, int dstStep,
                      IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, float* to) {
            FromBytes(4 * pixels, from, to);
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

int UnitFromBytesReversed_C4R(const std::uint8_t* src, int srcStep, float* dst, int dstStep,
                              IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, float* to) {
            std::uint8_t block[4 * kBlock];
            for (std::ptrdiff_t x = 0; x < pixels; x += kBlock) {
                const std::ptrdiff_t count = pixels - x < kBlock ? pixels - x : kBlock;
                Reverse(count, from + 4 * x, block);
                FromBytes(4 * count, block, to + 4 * x);
            }
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

int BytesFromUnit_C4R(const float* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size) {
    return FromFloats<false>(src, srcStep, dst, dstStep, size);
}

int BytesFromUnitReversed_C4R(const float* src, int srcStep, std::uint8_t* dst, int dstStep,
                              IppiSize size) {
    return FromFloats<true>(src, srcStep, dst, dstStep, size);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
