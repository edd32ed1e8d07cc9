// What Impressionist asks of a graphics card: geometry stages above all.
#include "effects/impressionist/impressionist.h"
#include "effects/impressionist/shaders.h"
#include "gpu/processors/median.h"
#include "gpu/processors/mix.h"
#include "gpu/processors/segment_tree.h"

namespace brushworks {
namespace {

constexpr ProgramProbe kPrograms[] = {
    {&ssImpressionist_AverageV, &ssImpressionist_AverageF},
    {&ssImpressionist_Vertex, &ssImpressionist_Fragment, &ssImpressionist_Geometry},
};
constexpr ProcessorProbe kProcessors[] = {
    Asks<GPUProcessors::CMix>,
    Asks<GPUProcessors::CSegmentTree>,
    Asks<GPUProcessors::CMedian>,
};

}  // namespace

bool CImpressionist::GetGPUProbes(GPUProbes& probes) const {
    if (!bGeometryShader4 || !bDrawInstanced) return false;
    probes = {.programs = kPrograms, .processors = kProcessors};
    return true;
}

}  // namespace brushworks
