// The tables of the triangle blur, and the size of its work memory.
#include "primitives/triangle_blur.h"

#include "primitives/primitive_table.h"

namespace brushworks {

#define BRUSHWORKS_BLUR                                                                   \
    (const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size, \
     IppiSize triangle, int inset, std::int32_t* work),                                   \
        (src, srcStep, dst, dstStep, size, triangle, inset, work)

BRUSHWORKS_PRIMITIVE(TriangleBlur_8u_C1R, BRUSHWORKS_BLUR)
BRUSHWORKS_PRIMITIVE(TriangleBlur_8u_C4R, BRUSHWORKS_BLUR)
BRUSHWORKS_PRIMITIVE(TriangleBlur_8u_AC4R, BRUSHWORKS_BLUR)

std::size_t TriangleBlurWorkInts(int width, int channels) {
    // Three rows of sums, each with room for the end of a vector loop, and one row of bytes with
    // the taps outside the image.
    constexpr std::size_t kSlack = 64;
    const std::size_t samples = static_cast<std::size_t>(width) * channels;
    return 3 * (samples + kSlack) + (samples + (kLargestTriangle + 2) * channels + kSlack) / 4 + 1;
}

}  // namespace brushworks
