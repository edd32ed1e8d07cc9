// Bodies of the integer arithmetic; built once for each variant.
#include "primitives/arithmetic.h"

#include "primitives/body.h"

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

/// The product of two bytes over 255.
inline std::uint8_t ScaledProduct(std::uint8_t a, std::uint8_t b) {
    const auto t = static_cast<std::uint16_t>(a * b);
    return static_cast<std::uint8_t>(static_cast<std::uint16_t>(t + (t >> 8) + 1) >> 8);
}

/// The shift of a 32-bit product, and the rounding that goes with it.
struct RoundedShift {
    explicit RoundedShift(int scale)
        : shift(scale < 32 ? scale : 0),
          whole(scale < 32),
          mask(scale < 32 ? (1u << scale) - 1 : ~0u),
          half(scale == 0    ? 1
               : scale <= 32 ? 1u << (scale - 1)
                             : ~0u) {}

    std::uint32_t operator()(std::uint32_t product) const {
        const std::uint32_t quotient = whole ? product >> shift : 0;
        return quotient + ((product & mask) + (quotient & 1) > half);
    }

    int shift;
    bool whole;  // false from a shift of 32 on, which leaves nothing but the rounding
    std::uint32_t mask;
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
    return ForRows(
        size,
        [constant](std::ptrdiff_t pixels, std::uint8_t* row) {
            for (std::ptrdiff_t i = 0; i < pixels; ++i) row[i] = ScaledProduct(row[i], constant);
        },
        Pixels<1>(image, step));
}

int ippiMulCScale_8u_C4IR(const std::uint8_t constants[4], std::uint8_t* image, int step,
                          IppiSize size) {
    if (!constants) return kStatusNullPointer;
    const std::uint8_t c0 = constants[0], c1 = constants[1], c2 = constants[2], c3 = constants[3];
    return ForRows(
        size,
        [=](std::ptrdiff_t pixels, std::uint8_t* row) {
            for (std::ptrdiff_t x = 0; x < pixels; ++x) {
                row[4 * x] = ScaledProduct(row[4 * x], c0);
                row[4 * x + 1] = ScaledProduct(row[4 * x + 1], c1);
                row[4 * x + 2] = ScaledProduct(row[4 * x + 2], c2);
                row[4 * x + 3] = ScaledProduct(row[4 * x + 3], c3);
            }
        },
        Pixels<4>(image, step));
}

int ippiMulC_16u_AC4IRSfs(const std::uint16_t* constants, std::uint16_t* image, int step,
                          IppiSize size, int scale) {
    if (!constants) return kStatusNullPointer;
    const auto pixels = Pixels<4>(image, step);
    if (const int status = CheckImages({pixels}, size)) return status;
    if (scale < 0) return kStatusBadArgument;
    const std::uint32_t c0 = constants[0], c1 = constants[1], c2 = constants[2];
    const RoundedShift shifted(scale);
    const auto times = [shifted](std::uint16_t sample, std::uint32_t constant) {
        const std::uint32_t product = shifted(sample * constant);
        return static_cast<std::uint16_t>(product < 65535 ? product : 65535);
    };
    return ForRows(
        size,
        [=](std::ptrdiff_t count, std::uint16_t* row) {
            for (std::ptrdiff_t x = 0; x < count; ++x) {
                row[4 * x] = times(row[4 * x], c0);
                row[4 * x + 1] = times(row[4 * x + 1], c1);
                row[4 * x + 2] = times(row[4 * x + 2], c2);
            }
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
