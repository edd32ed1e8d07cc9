// Bodies of the channel permutations; built once for each variant.
#include "primitives/swap.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {

int ippiSwapChannels_8u_C4IR(std::uint8_t* image, int step, IppiSize size, const int order[4]) {
    if (!order) return kStatusNullPointer;
    const auto pixels = Pixels<4>(image, step);
    if (const int status = CheckImages({pixels}, size)) return status;
    for (int k = 0; k < 4; ++k)
        if (order[k] < 0 || order[k] > 3) return kStatusBadArgument;
    // Shifts by a common count suit every instruction set; a byte shuffle needs SSSE3.
    const int s0 = 8 * order[0], s1 = 8 * order[1], s2 = 8 * order[2], s3 = 8 * order[3];
    return ForRows(
        size,
        [=](std::ptrdiff_t count, std::uint8_t* row) {
            for (std::ptrdiff_t x = 0; x < count; ++x) {
                const std::uint32_t old = LoadPixel(row + 4 * x);
                StorePixel(row + 4 * x, (old >> s0 & 0xFF) | (old >> s1 & 0xFF) << 8 |
                                            (old >> s2 & 0xFF) << 16 | (old >> s3) << 24);
            }
        },
        pixels);
}

int ReverseBytes_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                     IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x)
                StorePixel(to + 4 * x, __builtin_bswap32(LoadPixel(from + 4 * x)));
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
