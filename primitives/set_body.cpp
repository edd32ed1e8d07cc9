// Bodies of the fills; built once for each variant.
#include "primitives/set.h"

#include "primitives/body.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Fills the channel that the pointer stands at.
template <int Channels, class Sample>
int SetChannel(Sample value, Sample* dst, int step, IppiSize size) {
    return ForRows(
        size,
        [value](std::ptrdiff_t pixels, Sample* to) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x) to[Channels * x] = value;
        },
        Pixels<Channels>(dst, step));
}

}  // namespace

int ippiSet_8u_C1R(std::uint8_t value, std::uint8_t* dst, int step, IppiSize size) {
    return ForRows(
        size,
        [value](std::ptrdiff_t pixels, std::uint8_t* to) {
            std::memset(to, value, static_cast<std::size_t>(pixels));
        },
        Pixels<1>(dst, step));
}

int ippiSet_32f_C1R(float value, float* dst, int step, IppiSize size) {
    return SetChannel<1>(value, dst, step, size);
}

int ippiSet_8u_C4R(const std::uint8_t values[4], std::uint8_t* dst, int step, IppiSize size) {
    if (!values) return kStatusNullPointer;
    return ForRows(
        size,
        [pixel = LoadPixel(values)](std::ptrdiff_t pixels, std::uint8_t* to) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x) StorePixel(to + 4 * x, pixel);
        },
        Pixels<4>(dst, step));
}

int ippiSet_32f_C4R(const float values[4], float* dst, int step, IppiSize size) {
    if (!values) return kStatusNullPointer;
    const float v0 = values[0], v1 = values[1], v2 = values[2], v3 = values[3];
    return ForRows(
        size,
        [=](std::ptrdiff_t pixels, float* to) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x) {
                to[4 * x] = v0;
                to[4 * x + 1] = v1;
                to[4 * x + 2] = v2;
                to[4 * x + 3] = v3;
            }
        },
        Pixels<4>(dst, step));
}

int ippiSet_8u_C4CR(std::uint8_t value, std::uint8_t* dst, int step, IppiSize size) {
    return SetChannel<4>(value, dst, step, size);
}

int ippiSet_32f_C4CR(float value, float* dst, int step, IppiSize size) {
    return SetChannel<4>(value, dst, step, size);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
