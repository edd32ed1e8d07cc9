// A weighted sum of two frames, in place.
#pragma once

#include "frames/frame.h"
#include "primitives/types.h"

namespace brushworks::Processors {

class CAdd {
  public:
    /// `b` becomes the sum of both, each times its weight over 255, weights cut to 0..255; `a` is
    /// scratch and is scaled too. On colour formats two weights of 128 leave `a` alone: bytes are
    /// added and halved, ties to even, floats added and halved. Byte sums are cut at 255, float
    /// sums are not cut. False for other formats.
    bool Process(CFrame* a, CFrame* b, int wa, int wb);

    // The same on pixels of four samples; strides are in bytes.
    bool Process(unsigned char* a, unsigned char* b, int wa, int wb, int strideA, int strideB,
                 IppiSize size);
    bool Process(float* a, float* b, int wa, int wb, int strideA, int strideB, IppiSize size);

    static const float fScaleFactor[4];
};

}  // namespace brushworks::Processors
