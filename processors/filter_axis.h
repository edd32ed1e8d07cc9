// Convolutions along rows and along columns, which keep clear of the edges: a frame is widened
// first and loses the added border in the two passes.
//
// `kernel` points to floats for float frames and to ints for 8-bit frames, which also take
// `divisor`. Without `allChannels` alpha stays: where it comes last it is left alone, where it
// comes first it is copied from `src` over the whole region common to both frames. False for
// formats without a filter, and where the taps leave the source or nothing is left to work on.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CFilterRow {
  public:
    /// An odd `size` loses size - 1 columns and an even one `size`; `margin` rows above and below
    /// are left out. Output starts at the pixel that the first one belongs to where `dst` has room
    /// to keep it in its place, else at its edge.
    bool Process(CFrame* src, CFrame* dst, const void* kernel, int size, int anchor, int margin,
                 int divisor, bool allChannels);
};

class CFilterColumn {
  public:
    /// The same along columns, but for one asymmetry, kept on purpose: `size` rows are lost whether
    /// it is odd or even. Note the order of `margin` and `anchor`.
    bool Process(CFrame* src, CFrame* dst, const void* kernel, int size, int margin, int anchor,
                 int divisor, bool allChannels);
};

}  // namespace brushworks::Processors
