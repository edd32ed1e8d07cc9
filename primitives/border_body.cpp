// Bodies of the widening copies; built once for each variant.
#include "primitives/border.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Writes `count` copies of one pixel. The pixel lies outside what is written.
template <int Channels>
void Repeat(std::uint8_t* to, const std::uint8_t* pixel, int count) {
    if constexpr (Channels == 1) {
        std::memset(to, *pixel, static_cast<std::size_t>(count));
    } else {
        for (int x = 0; x < count; ++x) std::memcpy(to + Channels * x, pixel, Channels);
    }
}

template <int Channels>
int CopyReplicateBorder(const std::uint8_t* src, int srcStep, IppiSize srcSize, std::uint8_t* dst,
                        int dstStep, IppiSize dstSize, int top, int left) {
    if (!src || !dst) return kStatusNullPointer;
    if (dstSize.width < 1 || dstSize.height < 1) return kStatusSizeError;
    if (const int status = CheckImages({Pixels<Channels>(src, srcStep)}, srcSize)) return status;
    if (const int status = CheckImages({Pixels<Channels>(dst, dstStep)}, dstSize)) return status;
    if (top < 0 || left < 0 || top > dstSize.height - srcSize.height ||
        left > dstSize.width - srcSize.width)
        return kStatusBadArgument;

    const int right = dstSize.width - srcSize.width - left;
    const std::ptrdiff_t inner = static_cast<std::ptrdiff_t>(srcSize.width) * Channels;
    for (int y = 0; y < srcSize.height; ++y) {
        std::uint8_t* row = Row(dst, dstStep, top + y);
        std::uint8_t* first = row + static_cast<std::ptrdiff_t>(left) * Channels;
        const std::uint8_t* from = Row(src, srcStep, y);
        if (from != first) std::memmove(first, from, static_cast<std::size_t>(inner));
        Repeat<Channels>(row, first, left);
        Repeat<Channels>(first + inner, first + inner - Channels, right);
    }
    const auto rowBytes = static_cast<std::size_t>(dstSize.width) * Channels;
    const int bottom = top + srcSize.height - 1;
    for (int y = 0; y < top; ++y)
        std::memcpy(Row(dst, dstStep, y), Row(dst, dstStep, top), rowBytes);
    for (int y = bottom + 1; y < dstSize.height; ++y)
        std::memcpy(Row(dst, dstStep, y), Row(dst, dstStep, bottom), rowBytes);
    return kStatusOk;
}

}  // namespace

int ippiCopyReplicateBorder_8u_C1R(const std::uint8_t* src, int srcStep, IppiSize srcSize,
                                   std::uint8_t* dst, int dstStep, IppiSize dstSize, int top,
                                   int left) {
    return CopyReplicateBorder<1>(src, srcStep, srcSize, dst, dstStep, dstSize, top, left);
}

int ippiCopyReplicateBorder_8u_C3R(const std::uint8_t* src, int srcStep, IppiSize srcSize,
                                   std::uint8_t* dst, int dstStep, IppiSize dstSize, int top,
                                   int left) {
    return CopyReplicateBorder<3>(src, srcStep, srcSize, dst, dstStep, dstSize, top, left);
}

int ippiCopyReplicateBorder_8u_C4R(const std::uint8_t* src, int srcStep, IppiSize srcSize,
                                   std::uint8_t* dst, int dstStep, IppiSize dstSize, int top,
                                   int left) {
    return CopyReplicateBorder<4>(src, srcStep, srcSize, dst, dstStep, dstSize, top, left);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
