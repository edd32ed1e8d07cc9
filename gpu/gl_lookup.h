// OpenGL, found when a GPU call first needs it: the library itself loads on machines without any.
#pragma once

#include "brushworks/gl.h"

namespace brushworks {

/// The entry point of that name in the system's OpenGL, or null. [any thread]
void* FindGLProcedure(const char* name);

/// Whether the current context lists the extension as a whole word; false with no context current
/// or no OpenGL on the machine. [the thread that owns the context]
bool IsExtensionSupported(const char* name);

/// Whether a blank-separated list holds the name as a whole word.
bool ListHoldsExtension(const char* list, const char* name);

/// Asks the current context for all features, in the record's order, and says whether the required
/// ones are there. The questions stop where an answer settles that they are not.
bool RefreshFeatures(ARBHelper& features);

}  // namespace brushworks
