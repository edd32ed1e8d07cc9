// Bodies of the medians; built once for each variant.
#include "primitives/median.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

template <int Medians>
int FilterMedian(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                 IppiSize size, IppiSize mask, IppiPoint anchor) {
    if (const int status = CheckImages({Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep)}, size))
        return status;
    if (mask.width < 1 || mask.height < 1) return kStatusSizeError;
    if (mask.width % 2 == 0 || mask.height % 2 == 0 || anchor.x < 0 || anchor.y < 0 ||
        anchor.x >= mask.width || anchor.y >= mask.height)
        return kStatusBadArgument;

    const std::int64_t middle = std::int64_t{mask.width} * mask.height / 2;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int c = 0; c < Medians; ++c) {
                std::int64_t counts[256] = {};
                for (int j = 0; j < mask.height; ++j)
                    for (int i = 0; i < mask.width; ++i)
                        ++counts[Row(src, srcStep, y + j - anchor.y)[4 * (x + i - anchor.x) + c]];
                int median = 0;
                for (std::int64_t upTo = counts[0]; upTo <= middle; upTo += counts[median])
                    ++median;
                Row(dst, dstStep, y)[4 * x + c] = static_cast<std::uint8_t>(median);
            }
    return kStatusOk;
}

}  // namespace

int ippiFilterMedian_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size, IppiSize maskSize, IppiPoint anchor) {
    return FilterMedian<4>(src, srcStep, dst, dstStep, size, maskSize, anchor);
}

int ippiFilterMedian_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                             IppiSize size, IppiSize maskSize, IppiPoint anchor) {
    return FilterMedian<3>(src, srcStep, dst, dstStep, size, maskSize, anchor);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
