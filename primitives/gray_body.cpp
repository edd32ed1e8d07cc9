// Bodies of the conversions to gray; built once for each variant.
#include "primitives/gray.h"

#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr int kC0 = 1225, kC1 = 2404, kC2 = 467;

/// kLanes gray values by the fixed coefficients.
const auto kFixedGray = [](U32 pixels) {
    const auto s0s2 = (I16)(pixels & 0xFF00FFu), s1s3 = (I16)((U16)pixels >> 8);
    const auto c0c2 = (I16)(U32{} + (kC0 | kC2 << 16)), c1 = (I16)(U32{} + kC1);
    return (SumOfPairs(s0s2, c0c2) + SumOfPairs(s1s3, c1)) >> 12;
};

/// The same by any whole coefficients. The sums stay below 2^24, so that floats hold them exactly,
/// and floats have the one product that is fast everywhere.
inline I32 Gray(U32 pixels, const float coefficients[3]) {
    const Planes p = Split(pixels);
    const F32 sum = coefficients[0] * ToFloat(p.s0) + coefficients[1] * ToFloat(p.s1) +
                    coefficients[2] * ToFloat(p.s2);
    return ToInt(Min(Max(sum, F32{}), F32{} + (256.0f * 4096.0f - 1.0f))) >> 12;
}

#if defined(__SSSE3__)
constexpr bool kShufflesBytes = true;
#else
constexpr bool kShufflesBytes = false;
#endif

template <std::size_t... I, std::size_t... J>
inline U32 SpreadThrees(U32 v, std::index_sequence<I...>, std::index_sequence<J...>) {
    const auto groups = (U8)__builtin_shufflevector(v, v, (I / 4 * 3 + I % 4)...);
    return (U32)__builtin_shufflevector(groups, groups, (J / 16 * 16 + J % 16 / 4 * 3 + J % 4)...);
}
/// kLanes pixels of three or four samples in one lane each; a fourth that there is not is noise.
/// Pixels of three are read with kLanes bytes behind them.
template <int Channels>
inline U32 LoadPixels(const std::uint8_t* from) {
    const auto v = Load<U32>(from);
    if constexpr (Channels == 3)
        return SpreadThrees(v, Indexes<U32>{}, Indexes<U8>{});
    else
        return v;
}

/// gray(kLanes pixels) over all rows. The last pixels go through a copy, so that nothing behind the
/// last one's third sample is touched.
template <int Channels, class Lanes>
int GrayRows(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
             Lanes gray) {
    constexpr int kBlock = kVectorBytes, kPitch = Channels * kLanes;
    constexpr std::ptrdiff_t kRead = 3 * kPitch + kVectorBytes;  // bytes that a block reads
    const auto block = [gray](const std::uint8_t* from, std::uint8_t* to) {
        const auto lanes = [=](int part) {
            return gray(LoadPixels<Channels>(from + part * kPitch));
        };
        Store(to, NarrowToBytes(lanes(0), lanes(1), lanes(2), lanes(3)));
    };
    const std::ptrdiff_t end = std::ptrdiff_t{Channels} * size.width - (Channels - 3);
    for (int y = 0; y < size.height; ++y) {
        const std::uint8_t* from = Row(src, srcStep, y);
        std::uint8_t* to = Row(dst, dstStep, y);
        std::ptrdiff_t x = 0;
        for (; Channels * x + kRead <= end; x += kBlock) block(from + Channels * x, to + x);
        for (; x < size.width; x += kBlock) {
            const std::ptrdiff_t left = end - Channels * x, pixels = size.width - x;
            std::uint8_t colours[kRead] = {}, grays[kBlock];
            std::memcpy(colours, from + Channels * x,
                        static_cast<std::size_t>(left < kRead ? left : kRead));
            block(colours, grays);
            std::memcpy(to + x, grays, static_cast<std::size_t>(pixels < kBlock ? pixels : kBlock));
        }
    }
    return kStatusOk;
}

}  // namespace

int ippiRGBToGray_8u_C3C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                           IppiSize size) {
    if (const int status = CheckImages({{src, srcStep, 3}, {dst, dstStep, 1}}, size)) return status;
    if constexpr (kShufflesBytes) {
        return GrayRows<3>(src, srcStep, dst, dstStep, size, kFixedGray);
    } else {
        for (int y = 0; y < size.height; ++y) {
            const std::uint8_t* from = Row(src, srcStep, y);
            std::uint8_t* to = Row(dst, dstStep, y);
            for (int x = 0; x < size.width; ++x)
                to[x] = static_cast<std::uint8_t>(
                    (kC0 * from[3 * x] + kC1 * from[3 * x + 1] + kC2 * from[3 * x + 2]) >> 12);
        }
        return kStatusOk;
    }
}

int ippiRGBToGray_8u_AC4C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size) {
    if (const int status = CheckImages({{src, srcStep, 4}, {dst, dstStep, 1}}, size)) return status;
    return GrayRows<4>(src, srcStep, dst, dstStep, size, kFixedGray);
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
    return GrayRows<4>(src, srcStep, dst, dstStep, size,
                       [&scaled](U32 pixels) { return Gray(pixels, scaled); });
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
