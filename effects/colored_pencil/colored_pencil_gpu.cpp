// What Colored Pencil asks of a graphics card.
#include "effects/colored_pencil/colored_pencil.h"
#include "effects/colored_pencil/shaders.h"
#include "gpu/processors/smooth.h"
#include "gpu/shader_catalogue.h"

namespace brushworks {
namespace {

using CommonShaders::ssVertexDefault;

constexpr ProgramProbe kPrograms[] = {
    {&ssVertexDefault, &ssColoredPencil_Fragment},
};
constexpr ProcessorProbe kProcessors[] = {
    Asks<GPUProcessors::CSmooth>,
};

}  // namespace

bool CColoredPencil::GetGPUProbes(GPUProbes& probes) const {
    probes = {.programs = kPrograms, .processors = kProcessors};
    return true;
}

}  // namespace brushworks
