// Bodies of the general filters; built once for each variant.
#include "primitives/filter_general.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

inline std::uint8_t Round(float v) {
    if (!(v > 0.0f)) return 0;
    if (v >= 255.0f) return 255;
    return static_cast<std::uint8_t>(__builtin_rintf(v));
}

template <int Channels, class Sample>
int Filter(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size,
           const float* kernel, IppiSize kernelSize, IppiPoint anchor) {
    if (!src || !dst || !kernel) return kStatusNullPointer;
    if (size.width < 1 || size.height < 1 || kernelSize.width < 1 || kernelSize.height < 1)
        return kStatusSizeError;
    if (const int status =
            CheckImages({Pixels<Channels>(src, srcStep), Pixels<Channels>(dst, dstStep)}, size))
        return status;
    if (anchor.x < 0 || anchor.x >= kernelSize.width || anchor.y < 0 ||
        anchor.y >= kernelSize.height)
        return kStatusBadArgument;

    const int left = kernelSize.width - 1 - anchor.x, above = kernelSize.height - 1 - anchor.y;
    for (int y = 0; y < size.height; ++y) {
        Sample* to = Row(dst, dstStep, y);
        for (int i = 0; i < Channels * size.width; ++i) {
            const float* weight = kernel + std::ptrdiff_t{kernelSize.width} * kernelSize.height;
            float sum = 0.0f;
            for (int j = 0; j < kernelSize.height; ++j) {
                const Sample* from = Row(src, srcStep, y - above + j) + i - Channels * left;
                for (int k = 0; k < kernelSize.width; ++k)
                    sum += *--weight * static_cast<float>(from[Channels * k]);
            }
            if constexpr (sizeof(Sample) == 1)
                to[i] = Round(sum);
            else
                to[i] = sum;
        }
    }
    return kStatusOk;
}

}  // namespace

int ippiFilter32f_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const float* kernel, IppiSize kernelSize,
                         IppiPoint anchor) {
    return Filter<1>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor);
}

int ippiFilter32f_8u_C3R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const float* kernel, IppiSize kernelSize,
                         IppiPoint anchor) {
    return Filter<3>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor);
}

int ippiFilter32f_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const float* kernel, IppiSize kernelSize,
                         IppiPoint anchor) {
    return Filter<4>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor);
}

int ippiFilter_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                       const float* kernel, IppiSize kernelSize, IppiPoint anchor) {
    return Filter<4>(src, srcStep, dst, dstStep, size, kernel, kernelSize, anchor);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
