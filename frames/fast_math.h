// Sine, cosine and square root for the inner loops of strokes: no library call.
#pragma once

#include <array>

namespace brushworks::LFMath {

/// Entries of one period; the last returns to the first.
inline constexpr int kTableSize = 629;
/// Sine and cosine of i times 2 pi over 628.
extern const std::array<float, kTableSize> afSin;
extern const std::array<float, kTableSize> afCos;

/// The table's entry at 100 steps a radian, with no interpolation. The table has 628 steps a
/// period, not 628.3: the small mismatch, up to 0.0032 at the end of the period, is part of the
/// strokes' look.
float FastSin(float radians);
float FastCos(float radians);

/// Five Newton steps from (value + 1) / 2: close near 1, coarse for large values.
float FastSqrt(float value);

}  // namespace brushworks::LFMath
