// Bodies of the colour matrix; built once for each variant.
#include "primitives/colour_twist.h"

#include "primitives/float_pixels.h"
#include "primitives/pixel_loops.h"

namespace brushworks::BRUSHWORKS_VARIANT {
namespace {

/// Column `j` of the matrix, once for each pixel of a vector.
inline F32 Column(const float twist[3][4], int j) {
    F32 column = {};
    for (int i = 0; i < kLanes; ++i)
        if (i % 4 < 3) column[i] = twist[i % 4][j];
    return column;
}

/// Float pixels stay as they lie: a vector holds whole pixels, and a column serves all its samples.
int TwistRows(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
              const float twist[3][4]) {
    constexpr int kPixelBytes = 4 * sizeof(float);
    if (!twist) return kStatusNullPointer;
    if (const int status =
            CheckImages({{src, srcStep, kPixelBytes}, {dst, dstStep, kPixelBytes}}, size))
        return status;
    const F32 t0 = Column(twist, 0), t1 = Column(twist, 1), t2 = Column(twist, 2),
              t3 = Column(twist, 3);
    for (int y = 0; y < size.height; ++y)
        ForBlocksAC4<kLanes / 4>(Row(src, srcStep, y), Row(dst, dstStep, y), size.width,
                                 [&](const float* from, float* to, int) {
                                     const auto s = Load<F32>(from);
                                     const F32 sum = t0 * Spread<0>(s) + t1 * Spread<1>(s) +
                                                     t2 * Spread<2>(s) + t3;
                                     Store(to, KeepFourth(sum, Load<F32>(to)));
                                 });
    return kStatusOk;
}

}  // namespace

int ippiColorTwist32f_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                              IppiSize size, const float twist[3][4]) {
    if (!twist) return kStatusNullPointer;
    if (const int status = CheckImages({{src, srcStep, 4}, {dst, dstStep, 4}}, size)) return status;
    float t[3][4];
    std::memcpy(t, twist, sizeof t);
    for (int y = 0; y < size.height; ++y)
        ForBlocksAC4<kLanes>(Row(src, srcStep, y), Row(dst, dstStep, y), size.width,
                             [&](const std::uint8_t* from, std::uint8_t* to, int) {
                                 const Planes p = Split(from);
                                 const F32 s0 = ToFloat(p.s0), s1 = ToFloat(p.s1),
                                           s2 = ToFloat(p.s2);
                                 const auto sum = [&](const float* row) {
                                     return R8(row[0] * s0 + row[1] * s1 + row[2] * s2 + row[3]);
                                 };
                                 Join(to, {sum(t[0]), sum(t[1]), sum(t[2])});
                             });
    return kStatusOk;
}

int ippiColorTwist_32f_AC4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                            const float twist[3][4]) {
    return TwistRows(src, srcStep, dst, dstStep, size, twist);
}

int ippiColorTwist_32f_AC4IR(float* image, int step, IppiSize size, const float twist[3][4]) {
    return TwistRows(image, step, image, step, size, twist);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
