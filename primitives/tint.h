// One picture into another: tinted luminance, a uniform fade, and colours times alpha in the
// layouts that ippiAlphaPremul does not serve. In place is allowed. What holds for all primitives
// is told in copy.h.
#pragma once

#include "primitives/blend.h"

namespace brushworks {

/// Luminance 0.298 red + 0.586 green + 0.113 blue, times one 255th, times the colour's red, green
/// and blue of 0 to 255, truncated. Alpha takes luminance alone, which is always below 1: 0.
int TintBytes_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                  IppiSize size, const float color[3], AlphaAt alpha);
/// Luminance, at most 1 with NaN staying, times the colour, times one 255th; for alpha luminance
/// times one 255th.
int TintFloats_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                   const float color[3], AlphaAt alpha);

/// Alpha becomes t = alpha fade / 256, truncated, at most 255, and each colour c t / 256,
/// truncated. `fade` is from 0 to 65536.
int FadeBytes_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                  IppiSize size, int fade, AlphaAt alpha);
/// Samples are cut to 0..1, NaN to 0. Alpha becomes t = alpha fade, times one 255th, and each
/// colour is multiplied by t; nothing is cut then.
int FadeFloats_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                   float fade, AlphaAt alpha);

/// Pixels with alpha first: each colour times alpha over 255, truncated. Alpha of `dst` is left
/// alone.
int PremultiplyBytes_A4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size);
/// Each colour times alpha; alpha of `dst` is left alone.
int PremultiplyFloats_C4R(const float* src, int srcStep, float* dst, int dstStep, IppiSize size,
                          AlphaAt alpha);

}  // namespace brushworks
