// Copying of samples: whole pixels, single channels, and pixels without their fourth sample.
//
// Common to all primitives: an image is a pointer to its first sample and a step, the bytes from
// one row to the next. Arguments run source, step, destination, step, size, then constants;
// constants come first where a header says so. The result is a status of types.h, and the image is
// untouched unless it is 0. Null pointers are tested before all else, then the size, then the
// steps, then the domains of other arguments.
//
// A layout in a name tells which samples are touched. AC4 has four channels of which the fourth is
// neither read nor written, not even in the last pixel. In the channel forms (C1C3, C1C4, C4C1,
// C4CR) a pointer into several channels already stands at the wanted one; the other channels keep
// their values, and nothing behind the last pixel's sample is touched.
#pragma once

#include "primitives/types.h"

namespace brushworks {

// Whole pixels.
int ippiCopy_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                    IppiSize size);
int ippiCopy_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                    IppiSize size);
int ippiCopy_32f_C1R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size);
int ippiCopy_32f_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size);

// One channel. Source and destination may be channels of one image.
int ippiCopy_8u_C1C3R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size);
int ippiCopy_8u_C1C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size);
int ippiCopy_8u_C4C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size);
int ippiCopy_8u_C4CR(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                     IppiSize size);
int ippiCopy_32f_C1C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size);
int ippiCopy_32f_C4C1R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size);
int ippiCopy_32f_C4CR(const float* src, int srcStep, float* dst, int dstStep, IppiSize size);

// Three channels of four: AC4C3 drops the fourth sample, C3AC4 leaves the destination's alone.
int ippiCopy_8u_AC4C3R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size);
int ippiCopy_8u_C3AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                       IppiSize size);

}  // namespace brushworks
