// Bodies of the conversions to gray; built once for each variant.
#include "primitives/gray.h"

#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr float kRgbCoefficients[3] = {1225.0f, 2404.0f, 467.0f};

/// kLanes gray values. The sums are whole numbers below 2^24, so floats hold them exactly, and
/// floats have the one product that is fast everywhere.
template <bool kCut>
inline I32 GrayLanes(const std::uint8_t* pixels, const float coefficients[3]) {
    const Planes p = Split(pixels);
    F32 sum = coefficients[0] * ToFloat(p.s0) + coefficients[1] * ToFloat(p.s1) +
              coefficients[2] * ToFloat(p.s2);
    if constexpr (kCut) sum = Min(Max(sum, F32{}), F32{} + (256.0f * 4096.0f - 1.0f));
    return ToInt(sum) >> 12;
}

/// `kCut` where the coefficients can lead out of 0..255.
template <bool kCut>
int GrayRows(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
             const float coefficients[3]) {
    constexpr int kBlock = kVectorBytes;
    const float c[3] = {coefficients[0], coefficients[1], coefficients[2]};
    const auto block = [&c](const std::uint8_t* from, std::uint8_t* to) {
        Store(to, NarrowToBytes(GrayLanes<kCut>(from, c), GrayLanes<kCut>(from + kBlock, c),
                                GrayLanes<kCut>(from + 2 * kBlock, c),
                                GrayLanes<kCut>(from + 3 * kBlock, c)));
    };
    for (int y = 0; y < size.height; ++y) {
        const std::uint8_t* from = Row(src, srcStep, y);
        std::uint8_t* to = Row(dst, dstStep, y);
        int x = 0;
        for (; x < size.width - kBlock; x += kBlock) block(from + 4 * x, to + x);
        // The rest goes through a copy, so that nothing behind the row is touched.
        const std::size_t rest = static_cast<std::size_t>(size.width - x);
        std::uint8_t pixels[4 * kBlock] = {}, grays[kBlock];
        std::memcpy(pixels, from + 4 * x, 4 * rest - 1);
        block(pixels, grays);
        std::memcpy(to + x, grays, rest);
    }
    return kStatusOk;
}

}  // namespace

int ippiRGBToGray_8u_C3C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                           IppiSize size) {
    if (const int status = CheckImages({{src, srcStep, 3}, {dst, dstStep, 1}}, size)) return status;
    for (int y = 0; y < size.height; ++y) {
        const std::uint8_t* from = Row(src, srcStep, y);
        std::uint8_t* to = Row(dst, dstStep, y);
        for (int x = 0; x < size.width; ++x)
            to[x] = static_cast<std::uint8_t>(
                (1225 * from[3 * x] + 2404 * from[3 * x + 1] + 467 * from[3 * x + 2]) >> 12);
    }
    return kStatusOk;
}

int ippiRGBToGray_8u_AC4C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size) {
    if (const int status = CheckImages({{src, srcStep, 4}, {dst, dstStep, 1}}, size)) return status;
    return GrayRows<false>(src, srcStep, dst, dstStep, size, kRgbCoefficients);
}

int ippiColorToGray_8u_AC4C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                              IppiSize size, const float coefficients[3]) {
    if (!coefficients) return kStatusNullPointer;
    if (const int status = CheckImages({{src, srcStep, 4}, {dst, dstStep, 1}}, size)) return status;
    float scaled[3], magnitudes = 0.0f;
    for (int i = 0; i < 3; ++i) {
        const float c = coefficients[i] == coefficients[i] ? coefficients[i] : 0.0f;
        magnitudes += c < 0.0f ? -c : c;
        if (magnitudes > 16.0f) return kStatusBadArgument;
        scaled[i] = static_cast<float>(static_cast<int>(c * 4096.0f + 0.5f));
    }
    return GrayRows<true>(src, srcStep, dst, dstStep, size, scaled);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
