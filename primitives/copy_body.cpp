// Bodies of the copies; built once for each variant.
#include "primitives/body.h"
#include "primitives/copy.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Copies rows of `pixelBytes` a pixel as they stand.
int CopyRows(const void* src, int srcStep, void* dst, int dstStep, IppiSize size, int pixelBytes) {
    if (const int status =
            CheckImages({{src, srcStep, pixelBytes}, {dst, dstStep, pixelBytes}}, size))
        return status;
    const std::size_t rowBytes = static_cast<std::size_t>(size.width) * pixelBytes;
    const auto* from = static_cast<const std::uint8_t*>(src);
    auto* to = static_cast<std::uint8_t*>(dst);
    for (int y = 0; y < size.height; ++y)
        std::memcpy(Row(to, dstStep, y), Row(from, srcStep, y), rowBytes);
    return kStatusOk;
}

}  // namespace

int ippiCopy_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                    IppiSize size) {
    return CopyRows(src, srcStep, dst, dstStep, size, 1);
}

int ippiCopy_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                    IppiSize size) {
    return CopyRows(src, srcStep, dst, dstStep, size, 4);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
