// What Water Color asks of a graphics card.
#include "effects/water_color/water_color.h"
#include "gpu/processors/color_twist.h"
#include "gpu/processors/filter_3x3.h"
#include "gpu/processors/median.h"
#include "gpu/processors/mix.h"

namespace brushworks {
namespace {

constexpr ProcessorProbe kProcessors[] = {
    Asks<GPUProcessors::CColorTwist>,
    Asks<GPUProcessors::CMedian>,
    Asks<GPUProcessors::CFilter3x3>,
    Asks<GPUProcessors::CMix>,
};

}  // namespace

bool CWaterColor::GetGPUProbes(GPUProbes& probes) const {
    probes = {.programs = {}, .processors = kProcessors};
    return true;
}

}  // namespace brushworks
