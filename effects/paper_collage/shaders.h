// The stages of Paper Collage's passes on the graphics card.
#pragma once

#include "gpu/shader_struct.h"

namespace brushworks {

extern const ShaderStruct ssEmbossedPaper_MonoChrome;
extern const ShaderStruct ssEmbossedPaper_FirstPass;
extern const ShaderStruct ssEmbossedPaper_SecondPass;
extern const ShaderStruct ssEmbossedPaper_MakeShadow;

}  // namespace brushworks
