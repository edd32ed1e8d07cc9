// Where the cuts between the sheets lie: which level each brightness belongs to.
#pragma once

namespace brushworks {

/// Sheets of a collage, at most.
inline constexpr int kMostLevels = 8;

/// Maps brightness to the values of `nLevels` levels, 2 to kMostLevels: `pLevels` takes the values,
/// darkest first and all different, `pTable` for each of 256 inputs the value of its level.
/// `fBalance` (0 to 1) moves the input that falls on the middle of the levels: 0.5 leaves it in the
/// middle, more makes the dark levels wider. `fGamma` (0 to 1) bends the values between the first
/// and the last; 0.5 spaces them evenly.
void CreateGammaTable(float fBalance, int nLevels, bool bUnused, float fGamma,
                      unsigned char* pTable, unsigned char* pLevels);

}  // namespace brushworks
