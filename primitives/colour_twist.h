// The colour matrix: each of the first three samples becomes a weighted sum of them plus a
// constant.
//
// For i in 0, 1, 2, sample i becomes t[i][0] s0 + t[i][1] s1 + t[i][2] s2 + t[i][3], in single
// precision, worked from the left. The fourth sample is not written, and behind the third sample of
// a row's last pixel nothing is read or written. What holds for all primitives is told in copy.h.
#pragma once

#include "primitives/blend.h"

namespace brushworks {

/// Results are cut to 0..255 and rounded to the nearest whole number, ties to even.
int ippiColorTwist32f_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                              IppiSize size, const float twist[3][4]);
/// Results stand as they are.
int ippiColorTwist_32f_AC4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                            const float twist[3][4]);
int ippiColorTwist_32f_AC4IR(float* image, int step, IppiSize size, const float twist[3][4]);

/// Whole pixels with alpha at either end, which is copied. Channel i of the matrix is the i-th
/// sample, counted from the end where alpha is not. In place is allowed. Bytes are rounded as
/// above, floats cut to 0..1 with NaN to 0.
int TwistBytes_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                   IppiSize size, const float twist[3][4], AlphaAt alpha);
int TwistUnit_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                  const float twist[3][4], AlphaAt alpha);

}  // namespace brushworks
