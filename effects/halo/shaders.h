// The stages of Halo's passes on the graphics card.
#pragma once

#include "gpu/shader_struct.h"

namespace brushworks {

extern const ShaderStruct ssAurascope_AlphaLoad;
extern const ShaderStruct ssAurascope_DilateCircle;
extern const ShaderStruct ssAurascope_FilterAndMix;

}  // namespace brushworks
