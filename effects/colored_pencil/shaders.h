// The stages of Colored Pencil's passes on the graphics card.
#pragma once

#include "gpu/shader_struct.h"

namespace brushworks {

extern const ShaderStruct ssColoredPencil_Fragment;

}  // namespace brushworks
