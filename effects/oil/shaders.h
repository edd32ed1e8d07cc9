// The stages of Oil's passes on the graphics card.
#pragma once

#include "gpu/shader_struct.h"

namespace brushworks {

extern const ShaderStruct ssOil_InitDiagonal;
extern const ShaderStruct ssOil_UpdateDiagonal;
extern const ShaderStruct ssOil_Process;
extern const ShaderStruct ssOil_Remap;
extern const ShaderStruct ssOil_ColorTune;

}  // namespace brushworks
