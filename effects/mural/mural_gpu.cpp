// What Mural asks of a graphics card.
#include "effects/mural/mural.h"
#include "gpu/processors/blur.h"
#include "gpu/processors/color_twist.h"
#include "gpu/processors/combine.h"
#include "gpu/processors/mix.h"
#include "gpu/processors/smooth.h"

namespace brushworks {
namespace {

constexpr ProcessorProbe kProcessors[] = {
    Asks<GPUProcessors::CColorTwist>, Asks<GPUProcessors::CSmooth>, Asks<GPUProcessors::CBlur>,
    Asks<GPUProcessors::CCombine>,    Asks<GPUProcessors::CMix>,
};

}  // namespace

bool CSmoother::GetGPUProbes(GPUProbes& probes) const {
    probes = {.programs = {}, .processors = kProcessors};
    return true;
}

}  // namespace brushworks
