// Sets up the primitives.
#pragma once

#include "primitives/dispatch.h"

namespace brushworks::Processors {

/// Fixes the processor variant of the primitives; one object of this is constructed as the library
/// loads.
class COptimize {
  public:
    COptimize() { ippStaticInit(); }
};

}  // namespace brushworks::Processors
