// The stages of Impressionist's passes on the graphics card.
#pragma once

#include "gpu/shader_struct.h"

namespace brushworks {

extern const ShaderStruct ssImpressionist_Vertex;
extern const ShaderStruct ssImpressionist_Geometry;
extern const ShaderStruct ssImpressionist_Fragment;
extern const ShaderStruct ssImpressionist_AverageV;
extern const ShaderStruct ssImpressionist_AverageF;
extern const ShaderStruct ssImpressionist_Colorize;

}  // namespace brushworks
