// Samples of four channels between bytes and floats of 0 to 1, also with the channels of each pixel
// in reverse order, as between layouts with alpha last and alpha first. What holds for all
// primitives is told in copy.h.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// Each byte times one 255th.
int UnitFromBytes_C4R(const std::uint8_t* src, int srcStep, float* dst, int dstStep, IppiSize size);
int UnitFromBytesReversed_C4R(const std::uint8_t* src, int srcStep, float* dst, int dstStep,
                              IppiSize size);

/// Cut to 0..1 (NaN to 0), times 255, plus one half, truncated.
int BytesFromUnit_C4R(const float* src, int srcStep, std::uint8_t* dst, int dstStep, IppiSize size);
int BytesFromUnitReversed_C4R(const float* src, int srcStep, std::uint8_t* dst, int dstStep,
                              IppiSize size);

}  // namespace brushworks
