// Two pictures into a third, which may be one of the two: weighted sums, dodging, and one over the
// other in the layouts that ippiAlphaComp does not serve. What holds for all primitives is told in
// copy.h.
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// Where a pixel of four channels has its alpha.
enum class AlphaAt { kFirst, kLast };

/// (wa a + wb b) / 255, truncated, at most 255; weights from 0 to 255.
int MixBytes_C1R(const std::uint8_t* a, int aStep, const std::uint8_t* b, int bStep,
                 std::uint8_t* dst, int dstStep, IppiSize size, int wa, int wb);
/// wa a + wb b, at most `most`; NaN stays.
int MixFloats_C1R(const float* a, int aStep, const float* b, int bStep, float* dst, int dstStep,
                  IppiSize size, float wa, float wb, float most);

/// 256 base / (255 - blend), truncated, at most 255; 255 where blend is 255.
int DodgeBytes_C1R(const std::uint8_t* base, int baseStep, const std::uint8_t* blend, int blendStep,
                   std::uint8_t* dst, int dstStep, IppiSize size);
/// The same for the colours of pixels; alpha of `dst` is left alone.
int DodgeBytes_C4R(const std::uint8_t* base, int baseStep, const std::uint8_t* blend, int blendStep,
                   std::uint8_t* dst, int dstStep, IppiSize size, AlphaAt alpha);
/// The red sample is dodged, and the result stands in all three colours.
int DodgeBytesMono_C4R(const std::uint8_t* base, int baseStep, const std::uint8_t* blend,
                       int blendStep, std::uint8_t* dst, int dstStep, IppiSize size, AlphaAt alpha);
/// base / (1 - blend), at most 1, NaN staying; 1 where blend is 1. Alpha of `dst` is left alone.
int DodgeFloats_C4R(const float* base, int baseStep, const float* blend, int blendStep, float* dst,
                    int dstStep, IppiSize size, AlphaAt alpha);
int DodgeFloatsMono_C4R(const float* base, int baseStep, const float* blend, int blendStep,
                        float* dst, int dstStep, IppiSize size, AlphaAt alpha);

/// Pixels with alpha first, f over b. With t = ba (255 - fa) / 255 a colour becomes
/// (fa f + t b) / 255 and alpha t + fa; both quotients are truncated.
int OverBytes_A4R(const std::uint8_t* f, int fStep, const std::uint8_t* b, int bStep,
                  std::uint8_t* dst, int dstStep, IppiSize size);
/// f + b (255 - fa) / 255 in all four samples, the quotient truncated, at most 255.
int OverBytesPremultiplied_A4R(const std::uint8_t* f, int fStep, const std::uint8_t* b, int bStep,
                               std::uint8_t* dst, int dstStep, IppiSize size);
/// With t = (1 - fa) ba a colour becomes fa f + t b and alpha t + fa; nothing is cut.
int OverFloats_C4R(const float* f, int fStep, const float* b, int bStep, float* dst, int dstStep,
                   IppiSize size, AlphaAt alpha);
/// (1 - fa) b + f in all four samples; nothing is cut.
int OverFloatsPremultiplied_C4R(const float* f, int fStep, const float* b, int bStep, float* dst,
                                int dstStep, IppiSize size, AlphaAt alpha);

}  // namespace brushworks
