// Filters with a float kernel of any width and height, each channel by itself.
//
// They are convolutions: with the kernel size (n, m) and the anchor (a, b), kernel[b][a] meets the
// source at the output's own place, and the last kernel element meets the first source position,
// n - 1 - a pixels to the left and m - 1 - b rows above. What is read outside the region the caller
// sees to; source and destination do not overlap.
//
// The sum of float products runs over the source positions row by row, from the left. Nobody
// normalises the kernel. 8-bit results are cut to 0..255 and rounded to nearest with ties to even,
// float results stored as they are. A kernel that is the product of a column and a row (each
// element to 2^-19 of itself and all together to 2^-22), and large enough for it to pay, takes a
// row pass and a column pass: its sums differ from the direct ones by no more than float rounding,
// so that an 8-bit result whose sum lies that close to a tie may round to the other side.
//
// Checked in this order: null pointers; the size and the kernel size, -6; the steps, which must
// hold the region's width, -14; an anchor outside the kernel, -5. -9 if work memory cannot be had.
// The rest is told in copy.h.
#pragma once

#include "primitives/types.h"

namespace brushworks {

int ippiFilter32f_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const float* kernel, IppiSize kernelSize, IppiPoint anchor);
int ippiFilter32f_8u_C3R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const float* kernel, IppiSize kernelSize, IppiPoint anchor);
int ippiFilter32f_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const float* kernel, IppiSize kernelSize, IppiPoint anchor);
int ippiFilter_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                       const float* kernel, IppiSize kernelSize, IppiPoint anchor);

}  // namespace brushworks
