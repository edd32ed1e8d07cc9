// Arithmetic of float samples: single precision, nothing is cut. Constants come before the images.
//
// The AC4 forms take three constants and leave the fourth sample alone. Their pointers may stand at
// the second sample of an image, with the fourth of the last pixel outside it.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// dst = src + dst.
int ippiAdd_32f_C1IR(const float* src, int srcStep, float* dst, int dstStep, IppiSize size);
int ippiAdd_32f_C4IR(const float* src, int srcStep, float* dst, int dstStep, IppiSize size);

/// Each sample times its constant.
int ippiMulC_32f_C1IR(float constant, float* image, int step, IppiSize size);
int ippiMulC_32f_C4IR(const float constants[4], float* image, int step, IppiSize size);
int ippiMulC_32f_AC4IR(const float constants[3], float* image, int step, IppiSize size);
int ippiMulC_32f_AC4R(const float constants[3], const float* src, int srcStep, float* dst,
                      int dstStep, IppiSize size);

/// Each sample plus its constant.
int ippiAddC_32f_AC4IR(const float constants[3], float* image, int step, IppiSize size);
int ippiAddC_32f_AC4R(const float constants[3], const float* src, int srcStep, float* dst,
                      int dstStep, IppiSize size);

/// Square and square root of each sample.
int ippiSqr_32f_C4IR(float* image, int step, IppiSize size);
int ippiSqrt_32f_C4IR(float* image, int step, IppiSize size);

}  // namespace brushworks
