// The subcommand that tells what OpenGL renders here, and which effects render with it.
#pragma once

#include <ostream>

#include "host/library.h"

namespace brushworks::tools {

struct GpuOptions {
    bool hardware = false;  ///< a graphics card or nothing
    bool json = false;
};

/// The driver, the features that the library asks for, and for each effect whether it renders with
/// them. Throws host::Error where no OpenGL fits.
void describeGpu(const host::Library& library, const GpuOptions& options, std::ostream& out);

}  // namespace brushworks::tools
