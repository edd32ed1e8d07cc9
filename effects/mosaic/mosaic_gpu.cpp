// What Mosaic asks of a graphics card.
#include "effects/mosaic/mosaic.h"
#include "effects/mosaic/shaders.h"

namespace brushworks {
namespace {

constexpr ProgramProbe kPrograms[] = {
    {&ssMosaic_Vertex, &ssMosaic_Fragment, &ssMosaic_Outline},
    {&ssMosaic_Vertex, &ssMosaic_Fragment, &ssMosaic_Fill},
};

}  // namespace

bool CStainedGlass::GetGPUProbes(GPUProbes& probes) const {
    probes = {.programs = kPrograms, .processors = {}};
    probes.bImpossible = !bGeometryShader4 || !bDrawInstanced;
    return true;
}

}  // namespace brushworks
