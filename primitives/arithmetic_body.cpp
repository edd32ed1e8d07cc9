// Bodies of the integer arithmetic; built once for each variant.
#include "primitives/arithmetic.h"

#include "primitives/pixel_lanes.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Adds the source, with the sum shifted right by `scale`.
template <int Channels>
int AddScaled(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
              int scale) {
    const auto from = Pixels<Channels>(src, srcStep);
    const auto to = Pixels<Channels>(dst, dstStep);
    if (const int status = CheckImages({from, to}, size)) return status;
    if (scale < 0) return kStatusBadArgument;
    if (scale == 0)
        return ForRows(
            size,
            [](std::ptrdiff_t pixels, const std::uint8_t* a, std::uint8_t* b) {
                for (std::ptrdiff_t i = 0; i < Channels * pixels; ++i) {
                    const auto sum = static_cast<std::uint8_t>(a[i] + b[i]);
                    b[i] = sum < a[i] ? 255 : sum;
                }
            },
            from, to);
    // The sum has nine bits: from a shift of ten on, nothing rounds up to 1.
    const int shift = scale < 10 ? scale : 10;
    const auto belowHalf = static_cast<std::uint16_t>((1 << (shift - 1)) - 1);
    return ForRows(
        size,
        [=](std::ptrdiff_t pixels, const std::uint8_t* a, std::uint8_t* b) {
            for (std::ptrdiff_t i = 0; i < Channels * pixels; ++i) {
                const auto sum = static_cast<std::uint16_t>(a[i] + b[i]);
                const auto odd = static_cast<std::uint16_t>(sum >> shift & 1);
                const auto rounded = static_cast<std::uint16_t>(sum + belowHalf + odd);
                b[i] = static_cast<std::uint8_t>(rounded >> shift);
            }
        },
        from, to);
}

/// Each sample times its constant over 255; the constants repeat from pixel to pixel.
template <int Channels>
int MultiplyOver255(const std::uint8_t* constants, std::uint8_t* image, int step, IppiSize size) {
    const WideBytes factors = Widen(Repeat<U8>(constants, Channels));
    return ForRows(
        size,
        [factors](std::ptrdiff_t pixels, std::uint8_t* row) {
            MapPixels<kVectorBytes>(
                Channels * pixels,
                [factors](U8 samples) { return TimesOver255(Widen(samples), factors); },
                Whole<1>(row), Whole<1>(row));
        },
        Pixels<Channels>(image, step));
}

/// The shift of 32-bit products, and the rounding that goes with it.
struct RoundedShift {
    explicit RoundedShift(int scale)
        : shift(scale < 32 ? scale : 0),
          whole(scale < 32 ? ~0u : 0),
          remainder(scale < 32 ? (1u << scale) - 1 : ~0u),
          half(scale == 0    ? 1
               : scale <= 32 ? 1u << (scale - 1)
                             : ~0u) {}

    U32 operator()(U32 products) const {
        const U32 quotients = products >> shift & whole;
        return quotients - (U32)((products & remainder) + (quotients & 1) > half);
    }

    int shift;
    std::uint32_t whole;  // 0 from a shift of 32 on, which leaves nothing but the rounding
    std::uint32_t remainder;
    std::uint32_t half;
};

}  // namespace

int ippiAdd_8u_C1IRSfs(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size, int scale) {
    return AddScaled<1>(src, srcStep, dst, dstStep, size, scale);
}

int ippiAdd_8u_C4IRSfs(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size, int scale) {
    return AddScaled<4>(src, srcStep, dst, dstStep, size, scale);
}

int ippiMulCScale_8u_C1IR(std::uint8_t constant, std::uint8_t* image, int step, IppiSize size) {
    return MultiplyOver255<1>(&constant, image, step, size);
}

int ippiMulCScale_8u_C4IR(const std::uint8_t constants[4], std::uint8_t* image, int step,
                          IppiSize size) {
    if (!constants) return kStatusNullPointer;
    return MultiplyOver255<4>(constants, image, step, size);
}

int ippiMulC_16u_AC4IRSfs(const std::uint16_t* constants, std::uint16_t* image, int step,
                          IppiSize size, int scale) {
    if (!constants) return kStatusNullPointer;
    const auto pixels = Pixels<4>(image, step);
    if (const int status = CheckImages({pixels}, size)) return status;
    if (scale < 0) return kStatusBadArgument;
    // A word holds two samples, so that each is multiplied in 32 bits where it lies.
    const std::uint32_t lower[2] = {constants[0], constants[2]}, upper[2] = {constants[1], 0};
    const auto lowerFactors = Repeat<U32>(lower, 2), upperFactors = Repeat<U32>(upper, 2);
    const auto product = [rounded = RoundedShift(scale)](U32 samples, U32 factors) {
        return Min<U32>(rounded(samples * factors), U32{} + 65535);
    };
    return ForRows(
        size,
        [=](std::ptrdiff_t count, std::uint16_t* row) {
            MapPixels<kLanes / 2>(
                count,
                [=](U16 samples) {
                    const auto pairs = (U32)samples;
                    const U32 low = product(pairs & 0xFFFF, lowerFactors);
                    const U32 high = product(pairs >> 16, upperFactors);
                    return KeepFourth((U16)(low | high << 16), samples);
                },
                Colours(row), Colours(row));
        },
        pixels);
}

int ippiNot_8u_C1IR(std::uint8_t* image, int step, IppiSize size) {
    return ForRows(
        size,
        [](std::ptrdiff_t pixels, std::uint8_t* row) {
            for (std::ptrdiff_t i = 0; i < pixels; ++i) row[i] = static_cast<std::uint8_t>(~row[i]);
        },
        Pixels<1>(image, step));
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
