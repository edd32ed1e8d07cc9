// Float arithmetic on frames of four float channels, in place. Each refuses null frames and data,
// other formats, sizes that are not positive and a stride of 0.
#pragma once

#include "frames/frame.h"

namespace brushworks::Processors {

class CThresholdLTInPlace {
  public:
    /// Raises each sample below its channel's value to that value; four values, alpha's among them.
    bool Process(CFrame* frame, const float* values);
};

class CSqrInPlace {
  public:
    /// Squares every sample.
    bool Process(CFrame* frame);
};

class CSqrtInPlace {
  public:
    /// Takes the square root of every sample.
    bool Process(CFrame* frame);
};

}  // namespace brushworks::Processors
