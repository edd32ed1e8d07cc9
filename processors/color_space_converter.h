// Moves frames between bytes and floats, and between RGB and luma with colour differences.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CColorSpaceConverter {
  public:
    /// Converts between the colour formats: bytes times one 255th, floats cut to 0..1 and rounded,
    /// channels reversed where the order differs. False for equal formats, for PixelFormatARGB8 to
    /// PixelFormatBGRA32f and back, and for planes.
    bool Process(CFrame* src, CFrame* dst);

    // Between float ARGB and float Y'CbCr of Rec. 601 in studio range, differences around one half.
    // Each of the three steps goes from `src` to `dst`, so only on one frame given twice do they
    // build on one another. PixelFormatARGB32f alone is changed; alpha stays. Always true.
    bool ARGB32ToAppleR4FL(CFrame& src, CFrame& dst);
    bool AppleR4FLToARGB32(CFrame& src, CFrame& dst);

    // Their steps, on the three colours of PixelFormatARGB32f alone. False for other formats and an
    // empty common rectangle.
    bool ProcessColorMatrix32f(CFrame& src, CFrame& dst, float (*matrix)[4]);
    bool ProcessMulC32f(CFrame& src, CFrame& dst, float* values);
    bool ProcessAddC32f(CFrame& src, CFrame& dst, float* values);
};

}  // namespace brushworks::Processors
