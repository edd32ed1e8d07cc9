// Copying of samples, whole pixels or single channels.
//
// Common to all primitives: an image is a pointer to its first sample and a step, the bytes from
// one row to the next. Arguments run source, step, destination, step, size, then constants;
// constants come first where the name says C. The result is a status of types.h, and the image is
// untouched unless it is 0. Null pointers are tested before all else, then the size, then the
// steps.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// Copies one 8-bit channel.
int ippiCopy_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                    IppiSize size);
/// Copies 8-bit pixels of four channels.
int ippiCopy_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                    IppiSize size);

}  // namespace brushworks
