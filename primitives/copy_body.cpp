// Bodies of the copies; built once for each variant.
#include "primitives/copy.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Copies whole pixels.
template <int Channels, class Sample>
int CopyPixels(const Sample* src, int srcStep, Sample* dst, int dstStep, IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const Sample* from, Sample* to) {
            std::memcpy(to, from, static_cast<std::size_t>(pixels) * Channels * sizeof(Sample));
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

/// Copies the first three samples of each pixel.
template <int From, int To>
int CopyColours(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x)
                for (int c = 0; c < 3; ++c) to[To * x + c] = from[From * x + c];
        },
        Pixels<From>(src, srcStep), Pixels<To>(dst, dstStep));
}

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
    return CopyChannel<1, 3>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_8u_C1C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size) {
    return CopyChannel<1, 4>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_8u_C4C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size) {
    return CopyChannel<4, 1>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_8u_C4CR(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                     IppiSize size) {
    return CopyChannel<4, 4>(src, srcStep, dst, dstStep, size);
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
    return CopyColours<4, 3>(src, srcStep, dst, dstStep, size);
}

int ippiCopy_8u_C3AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size) {
    return CopyColours<3, 4>(src, srcStep, dst, dstStep, size);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
