// Whether the card takes programs of the weight of a median filter.
#pragma once

#include "gpu/processors/gpu_processor.h"

namespace brushworks::GPUProcessors {

/// The stages of a median that walks over the picture by diagonals: count a window, move it, find
/// the middle, put the picture together. Effects filter in memory and ask only this.
class CMedian : public CGPUProcessor {
  public:
    using CGPUProcessor::CGPUProcessor;

    bool IsSupported();
};

}  // namespace brushworks::GPUProcessors
