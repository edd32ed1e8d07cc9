// The colour matrix behind the controls Brightness, Contrast, Saturation and Hue.
//
// A matrix has 5 rows and 5 columns and multiplies row vectors (c0, c1, c2, c3, 1) from the right:
// channels in memory order, alpha fourth, offsets in row 4. What leaves here for primitives and
// shaders is 3 by 4 in column form: out[i] holds the factors of channels 0, 1 and 2 for result
// channel i, then its offset.
#pragma once

#include "frames/frame.h"
#include "frames/memory_allocator.h"

namespace brushworks::Processors {

class CColorTwist {
  public:
    /// Builds the 3 by 4 matrix from controls of 0 to 1, 0.5 being neutral. `color` tints by its
    /// bits 16 to 23, 8 to 15 and 0 to 7 for channels 0, 1 and 2, as far as `colorAmount` goes.
    /// Offsets are on the scale of 255 for the 8-bit formats. Without `keepOrder` the matrix acts
    /// on the opposite channel order. Always true.
    bool GetMatrix(float contrast, float brightness, float saturation, float hue,
                   unsigned int color, float colorAmount, PixelFormat format, float (*matrix)[4],
                   bool keepOrder);
    /// The same without a tint.
    bool GetMatrix(float contrast, float brightness, float saturation, float hue,
                   PixelFormat format, float (*matrix)[4], bool keepOrder);

    /// Applies the matrix to the colours and copies alpha; float results are cut to 0..1, those of
    /// PixelFormatBGRA32f in the whole of `dst`. Formats without colours are copied. The frames may
    /// be one. Always true; no scratch memory is asked for.
    bool Process(CFrame* src, CFrame* dst, float contrast, float brightness, float saturation,
                 float hue, unsigned int color, float colorAmount, MemoryAllocator& allocator);
    /// The same without a tint.
    bool Process(CFrame* src, CFrame* dst, float contrast, float brightness, float saturation,
                 float hue, MemoryAllocator& allocator);

    /// Turns the plane of channels `a` and `b`: the rotation is multiplied from the right if
    /// `order` is 0, else from the left.
    void RotateColor(float (&matrix)[5][5], float degrees, int a, int b, int order);
    /// Turns the hue about the gray axis, sheared so that luminance stays.
    void RotateHue(float (&matrix)[5][5], float degrees);

    /// Cuts all samples to 0..1, NaN to 0. False but for PixelFormatBGRA32f.
    bool ClampValues(CFrame* frame);
};

}  // namespace brushworks::Processors
