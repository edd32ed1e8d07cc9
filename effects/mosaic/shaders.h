// The stages of Mosaic's passes on the graphics card.
#pragma once

#include "gpu/shader_struct.h"

namespace brushworks {

extern const ShaderStruct ssMosaic_Vertex;
extern const ShaderStruct ssMosaic_Fragment;
extern const ShaderStruct ssMosaic_Outline;
extern const ShaderStruct ssMosaic_Fill;

}  // namespace brushworks
