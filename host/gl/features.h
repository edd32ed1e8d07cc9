// The features of a context, as the library wants them told.
#pragma once

#include "brushworks/gl.h"

namespace brushworks::host::gl {

/// Fills the record from the current context's list of extensions.
ARBHelper askFeatures(const char* extensions);

}  // namespace brushworks::host::gl
