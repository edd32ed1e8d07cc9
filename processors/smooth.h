// Edge-preserving smoothing: a bilateral filter along the rows and then along the columns.
#pragma once

#include "frames/frame.h"

namespace brushworks {
class MemoryAllocator;
}

namespace brushworks::Processors {

/// Holds its tables, made anew at every call; one object serves one thread.
class CSmooth {
  public:
    /// `spatial` and `range` say how far places and samples may lie apart to be mixed: a larger
    /// value mixes more, and with a `range` near 0 nothing. `radius` is the span in 15ths of 240th
    /// parts of the height, `doubled` on a field. `tone` from 0 to 1 mixes in an S-shaped curve,
    /// which acts once in each pass and so twice.
    ///
    /// Two frames of PixelFormatMono8 are smoothed as they are. All others are worked in
    /// PixelFormatBGRA8, alpha left alone; the conversions go to `srcWork` and `dstWork` where they
    /// are given, have data and are of another format than that, else to frames from `allocator`.
    /// `scratch` between the passes may be null. The frames may be one. Nothing happens where
    /// frames or data are null, no conversion serves, or memory cannot be had.
    void Process(CFrame* src, CFrame* dst, CFrame* scratch, MemoryAllocator* allocator,
                 float spatial, float range, float radius, float tone, bool doubled,
                 CFrame* srcWork, CFrame* dstWork);

    /// The bodies: the common region of 8-bit frames, the second without sample 3.
    void Render_8u_C1R(CFrame* src, CFrame* dst, CFrame* scratch, MemoryAllocator* allocator,
                       float spatial, float range, float radius, float tone, bool doubled);
    void Render_8u_AC4R(CFrame* src, CFrame* dst, CFrame* scratch, MemoryAllocator* allocator,
                        float spatial, float range, float radius, float tone, bool doubled);

    /// Weights of `size` taps, at most 619, that add up to about 256; to about 65536 where rounding
    /// would leave too little of those.
    void FillGaussKernel(int size, float sigma);

    static constexpr int kLargestSpan = 619;

    int m_anKernel[kLargestSpan + 1];  ///< by tap
    int m_anRange[511];                ///< by difference of samples plus 255
    unsigned char m_abTone[256];       ///< what a result is replaced by
    int m_nUnit;  ///< what a sum of weights begins with: 1, or 256 for the finer weights

  private:
    void FillRangeTable(float range);
    void FillToneTable(float tone);
    template <class Smooth>
    void Render(CFrame& src, CFrame& dst, CFrame* scratch, MemoryAllocator* allocator,
                float spatial, float range, float radius, float tone, bool doubled, Smooth* rows,
                Smooth* columns);
};

}  // namespace brushworks::Processors
