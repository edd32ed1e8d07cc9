// What Halo asks of a graphics card.
#include "effects/halo/halo.h"
#include "effects/halo/shaders.h"
#include "gpu/shader_catalogue.h"

namespace brushworks {
namespace {

using CommonShaders::ssVertexBiTexture;

constexpr ProgramProbe kPrograms[] = {
    {&ssVertexBiTexture, &ssAurascope_DilateCircle},
};

}  // namespace

bool CAurascope::GetGPUProbes(GPUProbes& probes) const {
    probes = {.programs = kPrograms, .processors = {}};
    return true;
}

}  // namespace brushworks
