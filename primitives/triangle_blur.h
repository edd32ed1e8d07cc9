// Blur of bytes by triangles of weights, down the columns and then along the rows, in a time that
// does not grow with the triangles. The names are this system's own, the checks those of all
// primitives (copy.h).
#pragma once

#include <cstddef>

#include "primitives/types.h"

namespace brushworks {

/// Weights of a triangle, at most.
inline constexpr int kLargestTriangle = 1000;

// The weights of a triangle of n are 1, 2, 3 ... 3, 2, 1; where n is even the two in the middle are
// alike and the left, or upper, one of them stands on the output's place. A sum of bytes times
// weights is multiplied by the float 1 / (sum of weights) and rounded to nearest, ties to even; so
// are the columns' results before they enter the rows'.
//
// The outermost `inset` rows and columns of the image (fewer where nothing would be left) take no
// part: they and all outside the image are repeats of the pixel nearest to them further in, both
// before the columns are blurred and after it.
//
// `triangle` holds the number of weights across and down, each from 1 to kLargestTriangle, else -5;
// `work` has room for TriangleBlurWorkInts. The destination is another image than the source.

int TriangleBlur_8u_C1R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                        IppiSize size, IppiSize triangle, int inset, std::int32_t* work);
int TriangleBlur_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                        IppiSize size, IppiSize triangle, int inset, std::int32_t* work);
int TriangleBlur_8u_AC4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                         IppiSize size, IppiSize triangle, int inset, std::int32_t* work);

/// Numbers of work memory for images of that many pixels a row.
std::size_t TriangleBlurWorkInts(int width, int channels);

}  // namespace brushworks
