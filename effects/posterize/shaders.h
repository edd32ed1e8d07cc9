// The stages of Posterize's passes; each is a file in shaders/.
#pragma once

#include "gpu/shader_struct.h"

namespace brushworks {

extern const ShaderStruct ssPosterize_Colors;
extern const ShaderStruct ssPosterize_PosterizeCommon;
extern const ShaderStruct ssPosterize_PosterizeBayer;
/// No pass uses it: a fragment cannot pass its error on, so the ordered pattern stands in.
extern const ShaderStruct ssPosterize_PosterizeFloydSteinbergDithering;

}  // namespace brushworks
