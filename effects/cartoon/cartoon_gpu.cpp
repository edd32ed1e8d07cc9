// What Cartoon asks of a graphics card.
#include "effects/cartoon/cartoon.h"
#include "effects/cartoon/shaders.h"
#include "gpu/processors/blend.h"
#include "gpu/processors/blur.h"
#include "gpu/processors/copy.h"
#include "gpu/processors/filter.h"
#include "gpu/processors/histogram.h"
#include "gpu/processors/median.h"
#include "gpu/processors/smooth.h"
#include "gpu/shader_catalogue.h"

namespace brushworks {
namespace {

using CommonShaders::ssVertexBiTexture;
using CommonShaders::ssVertexDefault;

constexpr ProgramProbe kPrograms[] = {
    {&ssVertexDefault, &ssTooneryPro_ClasterizeHistogramm},
    {&ssVertexDefault, &ssTooneryPro_Contrast},
    {&ssVertexDefault, &ssTooneryPro_ClasterizeStage1},
    {&ssVertexBiTexture, &ssTooneryPro_ClasterizeStage2},
    {&ssVertexDefault, &ssTooneryPro_ToGray},
    {&ssVertexDefault, &ssTooneryPro_Invert},
    {&ssVertexBiTexture, &ssTooneryPro_Merge},
    {&ssVertexBiTexture, &ssTooneryPro_DetailEnchancer},
    {&ssVertexBiTexture, &ssTooneryPro_Final},
};
constexpr ProcessorProbe kProcessors[] = {
    Asks<GPUProcessors::CCopy>,
    Asks<GPUProcessors::CMedian>,
    [](GPUHelper* helper) { return GPUProcessors::CHistogram(helper).IsSupportedGPU(); },
    Asks<GPUProcessors::CFilter>,
    Asks<GPUProcessors::CSmooth>,
    Asks<GPUProcessors::CBlur>,
    [](GPUHelper* helper) {
        return GPUProcessors::CBlend(helper).IsSupported(GPUProcessors::CBlend::kDodge);
    },
};

}  // namespace

bool CCartoonPro::GetGPUProbes(GPUProbes& probes) const {
    probes = {.programs = kPrograms, .processors = kProcessors};
    return true;
}

}  // namespace brushworks
