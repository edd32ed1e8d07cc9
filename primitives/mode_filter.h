// Every pixel becomes one that is common around it: the mode filter of daubs of paint. The name is
// this system's own, the argument order and the checks those of all primitives (copy.h).
#pragma once

#include "primitives/types.h"

namespace brushworks {

/// Four-channel pixels are sorted into 256 buckets of brightness,
/// (29 s0 + 150 s1 + 77 s2) >> 8. Each result is the colour of the fullest bucket under the mask,
/// the lowest of equals. `src` is the pixel under the mask's upper left corner for the first
/// result, so that it has the mask's size less 1 more columns and rows than `dst`. The images are
/// two.
///
/// What colour a bucket has is part of the filter's look. All start with 0. A pixel that comes
/// under the mask gives its bucket its colour, all four samples, unless the bucket is empty just
/// then: the first one of a bucket is only counted. A bucket that has emptied keeps its colour. The
/// order of coming is this. The first mask is filled row by row, each from the left. It moves along
/// the first row; from every place on that way it moves down its column, and what it met there is
/// forgotten again. Each move takes the pixels of the column or row that leaves and of the one that
/// enters in pairs, from the top or the left, the leaving one first.
int ModeFilter_8u_C4R(const std::uint8_t* src, int srcStep, std::uint8_t* dst, int dstStep,
                      IppiSize size, IppiSize mask);

}  // namespace brushworks
