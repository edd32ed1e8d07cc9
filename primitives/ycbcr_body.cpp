// Bodies of the conversions to and from packed 4:2:2; built once for each variant. A block is
// kLanes pairs of pixels.
#include "primitives/ycbcr.h"

#include "primitives/simd.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

constexpr int kBlock = 2 * kLanes;

struct YCbCr {
    F32 y, cb, cr;
};

inline F32 ByteOf(U32 v, int index) {
    return ToFloat((I32)(v >> (8 * index) & 255));
}

inline YCbCr FromBgr(U32 pixels) {
    const F32 b = ByteOf(pixels, 0), g = ByteOf(pixels, 1), r = ByteOf(pixels, 2);
    return {0.257f * r + 0.504f * g + 0.098f * b + 16.0f,
            -0.148f * r - 0.291f * g + 0.439f * b + 128.0f,
            0.439f * r - 0.368f * g - 0.071f * b + 128.0f};
}

inline void PackBlock(const std::uint8_t* pixels, std::uint8_t* packed) {
    const auto a = Load<U32>(pixels), b = Load<U32>(pixels + kVectorBytes);
    const YCbCr first = FromBgr(Even(a, b)), second = FromBgr(Odd(a, b));
    const I32 cb = R8((first.cb + second.cb) * 0.5f), cr = R8((first.cr + second.cr) * 0.5f);
    Store(packed, R8(first.y) | cb << 8 | R8(second.y) << 16 | (I32)((U32)cr << 24));
}

inline void UnpackBlock(const std::uint8_t* packed, std::uint8_t* pixels, U32 alpha) {
    const auto v = Load<U32>(packed);
    const F32 cb = ByteOf(v, 1) - 128.0f, cr = ByteOf(v, 3) - 128.0f;
    const auto toBgr = [&](F32 y) {
        const F32 luma = 1.164f * (y - 16.0f);
        const I32 b = R8(luma + 2.017f * cb), g = R8(luma - 0.813f * cr - 0.392f * cb),
                  r = R8(luma + 1.596f * cr);
        return (U32)(b | g << 8 | r << 16) | alpha;
    };
    const U32 first = toBgr(ByteOf(v, 0)), second = toBgr(ByteOf(v, 2));
    Store(pixels, ZipLow(first, second));
    Store(pixels + kVectorBytes, ZipHigh(first, second));
}

}  // namespace

int ippiBGRToYCbCr422_8u_AC4C2R(const std::uint8_t* src, int srcStep, std::uint8_t* dst,
                                int dstStep, IppiSize size) {
    if (const int status = CheckImages({{src, srcStep, 4}, {dst, dstStep, 2}}, size)) return status;
    for (int y = 0; y < size.height; ++y) {
        const std::uint8_t* from = Row(src, srcStep, y);
        std::uint8_t* to = Row(dst, dstStep, y);
        int x = 0;
        for (; x < size.width - kBlock; x += kBlock) PackBlock(from + 4 * x, to + 2 * x);
        // The rest goes through a copy. A last odd pixel is paired with itself, and the mean of two
        // equal chromas is that chroma.
        const std::size_t rest = static_cast<std::size_t>(size.width - x);
        std::uint8_t pixels[4 * kBlock] = {}, packed[2 * kBlock];
        std::memcpy(pixels, from + 4 * x, 4 * rest - 1);
        if (rest % 2) std::memcpy(pixels + 4 * rest, pixels + 4 * (rest - 1), 4);
        PackBlock(pixels, packed);
        std::memcpy(to + 2 * x, packed, 2 * rest);
    }
    return kStatusOk;
}

int ippiYCbCr422ToBGR_8u_C2C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                               IppiSize size, std::uint8_t alpha) {
    if (const int status = CheckImages({{src, srcStep, 2}, {dst, dstStep, 4}}, size)) return status;
    const U32 alphas = U32{} + (std::uint32_t{alpha} << 24);
    for (int y = 0; y < size.height; ++y) {
        const std::uint8_t* from = Row(src, srcStep, y);
        std::uint8_t* to = Row(dst, dstStep, y);
        int x = 0;
        for (; x < size.width - kBlock; x += kBlock) UnpackBlock(from + 2 * x, to + 4 * x, alphas);
        const std::size_t rest = static_cast<std::size_t>(size.width - x);
        std::uint8_t packed[2 * kBlock] = {}, pixels[4 * kBlock];
        std::memcpy(packed, from + 2 * x, 2 * rest);
        if (rest % 2)
            packed[2 * rest + 1] = size.width > 1 ? from[2 * size.width - 3] : std::uint8_t{128};
        UnpackBlock(packed, pixels, alphas);
        std::memcpy(to + 4 * x, pixels, 4 * rest);
    }
    return kStatusOk;
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
