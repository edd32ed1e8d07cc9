// What Oil asks of a graphics card.
#include "effects/oil/oil.h"
#include "effects/oil/shaders.h"
#include "gpu/processors/copy.h"
#include "gpu/processors/median.h"
#include "gpu/processors/mix.h"
#include "gpu/shader_catalogue.h"

namespace brushworks {
namespace {

using CommonShaders::ssVertexDefault;
using CommonShaders::ssVertexTriTexture;

constexpr ProgramProbe kPrograms[] = {
    {&ssVertexDefault, &ssOil_InitDiagonal}, {&ssVertexTriTexture, &ssOil_UpdateDiagonal},
    {&ssVertexDefault, &ssOil_Process},      {&ssVertexDefault, &ssOil_Remap},
    {&ssVertexDefault, &ssOil_ColorTune},
};
constexpr ProcessorProbe kProcessors[] = {
    Asks<GPUProcessors::CCopy>,
    Asks<GPUProcessors::CMedian>,
    Asks<GPUProcessors::CMix>,
};

}  // namespace

bool COilPaint::GetGPUProbes(GPUProbes& probes) const {
    probes = {.programs = kPrograms, .processors = kProcessors};
    return true;
}

}  // namespace brushworks
