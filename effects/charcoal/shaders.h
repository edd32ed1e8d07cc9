// The stages of Charcoal's passes; each is a file in shaders/.
#pragma once

#include "gpu/shader_struct.h"

namespace brushworks {

extern const ShaderStruct ssCharcoal_ToGray;
extern const ShaderStruct ssCharcoal_Fragment;

}  // namespace brushworks
