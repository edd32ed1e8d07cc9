// What the operations with two sources check and tell their shaders alike.
#pragma once

#include "gpu/shader_program.h"

namespace brushworks::GPUProcessors {

/// All three are there, and the target is neither source.
bool CheckTwoSources(const TextureParams& src0, const TextureParams& src1,
                     const TextureParams& dst);

/// Tells the program the channel orders of the three.
bool SetSwaps(GLShaderProgram& program, const TextureParams& src0, const TextureParams& src1,
              const TextureParams& dst);

}  // namespace brushworks::GPUProcessors
