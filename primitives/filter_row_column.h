// Filters along one axis: each output sample is a weighted sum of its neighbours in the row, or in
// the column, each channel by itself.
//
// They are convolutions: the kernel is walked in reverse. With the size n and the anchor a the
// output at x is the sum over j from 0 to n - 1 of kernel[n - 1 - j] times source[x - (n - 1 - a) +
// j], so that kernel[a] meets source[x]. The source pointer stands at the pixel of the first
// output; the n - 1 - a pixels before the region and the a pixels behind it are read as well, and
// the caller sees to it that they exist. Source and destination do not overlap.
//
// 8-bit samples: the sum is an integer, whatever the weights (sums beyond 64 bits, which take more
// than 2^24 taps, wrap). A divisor of 1 cuts it to 0..255; a power of 2 shifts it right, rounded to
// nearest with ties to even; any other, negative ones included, multiplies it by the float
// 1 / divisor and rounds in the same way. Float samples: the sum in order of j, stored as it is.
//
// Checked in this order: null pointers; the size and the kernel size, -6; a divisor of 0, -51; the
// steps, where the row filter's source step must hold width + n - 1 pixels, -14; an anchor outside
// 0..n - 1, -5. -9 if work memory cannot be had. The rest is told in copy.h.
#pragma once

#include "primitives/types.h"

namespace brushworks {

int ippiFilterRow_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                         int divisor);
int ippiFilterRow_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                         int divisor);
int ippiFilterRow_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                          IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                          int divisor);
int ippiFilterRow_32f_C1R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                          const float* kernel, int kernelSize, int anchor);
int ippiFilterRow_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                          const float* kernel, int kernelSize, int anchor);
int ippiFilterRow_32f_AC4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                           const float* kernel, int kernelSize, int anchor);

int ippiFilterColumn_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                            int divisor);
int ippiFilterColumn_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                            IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                            int divisor);
int ippiFilterColumn_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                             IppiSize size, const std::int32_t* kernel, int kernelSize, int anchor,
                             int divisor);
int ippiFilterColumn_32f_C1R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                             const float* kernel, int kernelSize, int anchor);
int ippiFilterColumn_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                             const float* kernel, int kernelSize, int anchor);
int ippiFilterColumn_32f_AC4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                              const float* kernel, int kernelSize, int anchor);

}  // namespace brushworks
