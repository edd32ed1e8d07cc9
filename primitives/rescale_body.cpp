// Bodies of the change between bytes and floats of 0 to 1; built once for each variant.
#include "primitives/rescale.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Pixels that the reversing forms take at a time, through a buffer in the first-level cache: the
/// loops on either side of it are ones that the compiler vectorises.
constexpr std::ptrdiff_t kBlock = 256;

void FromBytes(std::ptrdiff_t samples, const std::uint8_t* __restrict from, float* __restrict to) {
    for (std::ptrdiff_t i = 0; i < samples; ++i) to[i] = from[i] * 0.003921569f;
}

void FromFloats(std::ptrdiff_t samples, const float* __restrict from, std::uint8_t* __restrict to) {
    for (std::ptrdiff_t i = 0; i < samples; ++i) {
        const float raised = from[i] > 0.0f ? from[i] : 0.0f;
        const float cut = raised < 1.0f ? raised : 1.0f;
        to[i] = static_cast<std::uint8_t>(static_cast<int>(cut * 255.0f + 0.5f));
    }
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
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const float* from, std::uint8_t* to) {
            FromFloats(4 * pixels, from, to);
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

int BytesFromUnitReversed_C4R(const float* src, int srcStep, std::uint8_t* dst, int dstStep,
                              IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const float* from, std::uint8_t* to) {
            std::uint8_t block[4 * kBlock];
            for (std::ptrdiff_t x = 0; x < pixels; x += kBlock) {
                const std::ptrdiff_t count = pixels - x < kBlock ? pixels - x : kBlock;
                FromFloats(4 * count, from + 4 * x, block);
                Reverse(count, block, to + 4 * x);
            }
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
