// Hue, saturation, value and alpha of pixels of four channels, in this memory order, and back.
//
// Unlike in hsv.h the numbers run from 0 to 1 and hue starts at blue, wherever the layout has it:
// blue is 0, green 1/3, red 2/3. In place is allowed. What holds for all primitives is told in
// copy.h.
#pragma once

#include "primitives/blend.h"

namespace brushworks {

/// With mx and mn the largest and the least colour: V is mx, S is (mx - mn) / mx, H the place on
/// the wheel. Both are 0 where mx is not above 0 or mn not below it. Alpha is copied.
int HsvaFromFloats_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                       AlphaAt alpha);
/// The way back. A saturation not above 0 gives V in all colours; a hue with no place on the wheel,
/// from -1/6 up to 7/6, gives 0 in all of them.
int FloatsFromHsva_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                       AlphaAt alpha);

/// The same for bytes with alpha first, each of them taken as one of 255 parts: results are cut to
/// 0..255 and truncated.
int HsvaFromBytes_A4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size);
int BytesFromHsva_A4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size);

}  // namespace brushworks
