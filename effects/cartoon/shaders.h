// The stages of Cartoon's passes on the graphics card.
#pragma once

#include "gpu/shader_struct.h"

namespace brushworks {

extern const ShaderStruct ssTooneryPro_Contrast;
extern const ShaderStruct ssTooneryPro_ClasterizeHistogramm;
extern const ShaderStruct ssTooneryPro_ClasterizeStage1;
extern const ShaderStruct ssTooneryPro_ClasterizeStage2;
extern const ShaderStruct ssTooneryPro_ToGray;
extern const ShaderStruct ssTooneryPro_Invert;
extern const ShaderStruct ssTooneryPro_Merge;
extern const ShaderStruct ssTooneryPro_DetailEnchancer;
extern const ShaderStruct ssTooneryPro_Final;

}  // namespace brushworks
