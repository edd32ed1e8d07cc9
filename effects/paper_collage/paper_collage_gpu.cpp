// What Paper Collage asks of a graphics card.
#include "effects/paper_collage/paper_collage.h"
#include "effects/paper_collage/shaders.h"
#include "gpu/shader_catalogue.h"

namespace brushworks {
namespace {

using CommonShaders::ssVertexBiTexture;

constexpr ProgramProbe kPrograms[] = {
    {&ssVertexBiTexture, &ssEmbossedPaper_FirstPass},
};

}  // namespace

bool CEmbossedPaper::GetGPUProbes(GPUProbes& probes) const {
    probes = {.programs = kPrograms, .processors = {}};
    return true;
}

}  // namespace brushworks
