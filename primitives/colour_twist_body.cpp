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

template <AlphaAt kAlpha>
int TwistBytes(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size,
               const float twist[3][4]) {
    float t[3][4];
    std::memcpy(t, twist, sizeof t);
    return ForRows(
        size,
        [&t](std::ptrdiff_t pixels, const std::uint8_t* from, std::uint8_t* to) {
            const auto twisted = [&t](U8 bytes) {
                const auto words = (U32)bytes;
                const auto channel = [words](int i) {
                    return ToFloat((I32)(words >> 8 * PlaceOf<kAlpha>(i) & 255));
                };
                const F32 c0 = channel(0), c1 = channel(1), c2 = channel(2);
                U32 result = words & 255u << 8 * PlaceOf<kAlpha>(3);
                for (int i = 0; i < 3; ++i)
                    result |= (U32)R8(t[i][0] * c0 + t[i][1] * c1 + t[i][2] * c2 + t[i][3])
                              << 8 * PlaceOf<kAlpha>(i);
                return (U8)result;
            };
            MapPixels<kLanes>(pixels, twisted, Whole<4>(to), Whole<4>(from));
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
}

template <AlphaAt kAlpha>
int TwistUnit(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
              const float twist[3][4]) {
    F32 t[4] = {};
    for (int j = 0; j < 4; ++j)
        for (int i = 0; i < kLanes; ++i)
            if (i % 4 != PlaceOf<kAlpha>(3)) t[j][i] = twist[PlaceOf<kAlpha>(i % 4)][j];
    return ForRows(
        size,
        [&t](std::ptrdiff_t pixels, const float* from, float* to) {
            const auto twisted = [t0 = t[0], t1 = t[1], t2 = t[2], t3 = t[3]](F32 s) {
                const F32 sum = t0 * Spread<PlaceOf<kAlpha>(0)>(s) +
                                t1 * Spread<PlaceOf<kAlpha>(1)>(s) +
                                t2 * Spread<PlaceOf<kAlpha>(2)>(s) + t3;
                const F32 cut = Min(Max(sum, F32{}), F32{} + 1.0f);
                return WithSample<PlaceOf<kAlpha>(3)>(cut, s);
            };
            MapPixels<kLanes / 4>(pixels, twisted, Whole<4>(to), Whole<4>(from));
        },
        Pixels<4>(src, srcStep), Pixels<4>(dst, dstStep));
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

int TwistBytes_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                   IppiSize size, const float twist[3][4], AlphaAt alpha) {
    if (!twist) return kStatusNullPointer;
    return (alpha == AlphaAt::kFirst
                ? TwistBytes<AlphaAt::kFirst>
                : TwistBytes<AlphaAt::kLast>)(src, srcStep, dst, dstStep, size, twist);
}

int TwistUnit_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                  const float twist[3][4], AlphaAt alpha) {
    if (!twist) return kStatusNullPointer;
    return (alpha == AlphaAt::kFirst
                ? TwistUnit<AlphaAt::kFirst>
                : TwistUnit<AlphaAt::kLast>)(src, srcStep, dst, dstStep, size, twist);
}

}  // namespace brushworks::BRUSHWORKS_VARIANT
