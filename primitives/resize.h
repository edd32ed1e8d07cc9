// Resampling of a rectangle of one image into a rectangle of another.
//
// Areas of pixels are mapped, not their centres: along each axis the destination pixel x, counted
// from the destination's corner, takes the source at u = (x + 0.5 - shift) / factor - 0.5, counted
// from the corner of the source region, in double precision. Nothing smooths when shrinking. Taps
// outside the source region, or outside the image where the region reaches beyond it, repeat the
// nearest pixel. Sums are single precision, each from the lowest tap, along the column first; 8-bit
// results are rounded once, ties to even, and cut to 0..255.
//
// A destination region with a corner writes that part of the whole picture, so that a picture may
// be made in pieces. Sizes below 1 give -6; a factor that is not above 0, a shift that is not
// finite, an unknown interpolation, a destination corner below 0 and a source region without a
// pixel in its image give -5. What holds for all primitives is told in copy.h.
#pragma once

#include "primitives/types.h"

namespace brushworks {

inline constexpr int kResizeNearest = 1;   ///< the pixel at floor(u + 0.5)
inline constexpr int kResizeLinear = 2;    ///< two taps
inline constexpr int kResizeCubic = 4;     ///< four taps, Catmull-Rom
inline constexpr int kResizeLanczos = 16;  ///< six taps, sinc(t) sinc(t / 3), divided by their sum

/// The bytes that `buffer` must have for these regions, whatever the interpolation will be.
int ippiResizeGetBufSize(IppiRect srcRoi, IppiRect dstRoi, int channels, int interpolation,
                         int* size);

int ippiResizeSqrPixel_8u_C1R(const std::uint8_t* src, IppiSize srcSize, int srcStep,
                              IppiRect srcRoi, std::uint8_t* dst, int dstStep, IppiRect dstRoi,
                              double xFactor, double yFactor, double xShift, double yShift,
                              int interpolation, std::uint8_t* buffer);
int ippiResizeSqrPixel_8u_C4R(const std::uint8_t* src, IppiSize srcSize, int srcStep,
                              IppiRect srcRoi, std::uint8_t* dst, int dstStep, IppiRect dstRoi,
                              double xFactor, double yFactor, double xShift, double yShift,
                              int interpolation, std::uint8_t* buffer);
int ippiResizeSqrPixel_32f_C1R(const float* src, IppiSize srcSize, int srcStep, IppiRect srcRoi,
                               float* dst, int dstStep, IppiRect dstRoi, double xFactor,
                               double yFactor, double xShift, double yShift, int interpolation,
                               std::uint8_t* buffer);
int ippiResizeSqrPixel_32f_C4R(const float* src, IppiSize srcSize, int srcStep, IppiRect srcRoi,
                               float* dst, int dstStep, IppiRect dstRoi, double xFactor,
                               double yFactor, double xShift, double yShift, int interpolation,
                               std::uint8_t* buffer);

// Without shifts, into a whole image, with memory of their own: -9 where there is none.
int ippiResize_8u_C4R(const std::uint8_t* src, IppiSize srcSize, int srcStep, IppiRect srcRoi,
                      std::uint8_t* dst, int dstStep, IppiSize dstSize, double xFactor,
                      double yFactor, int interpolation);
int ippiResize_32f_C4R(const float* src, IppiSize srcSize, int srcStep, IppiRect srcRoi, float* dst,
                       int dstStep, IppiSize dstSize, double xFactor, double yFactor,
                       int interpolation);

}  // namespace brushworks
