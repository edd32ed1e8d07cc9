#include "gpu/probes.h"

#include <algorithm>

#include "gpu/gl_objects.h"

namespace brushworks {

bool IsProgramSupported(GPUHelper& helper, const ProgramProbe& probe) {
    ScratchProgram program(helper);
    return program.Make(*probe.vertex, *probe.fragment,
                        probe.geometry ? *probe.geometry : ShaderStruct{});
}

bool ArePassed(GPUHelper& helper, const GPUProbes& probes) {
    return !probes.bImpossible &&
           std::ranges::all_of(
               probes.programs,
               [&](const ProgramProbe& probe) { return IsProgramSupported(helper, probe); }) &&
           std::ranges::all_of(probes.processors,
                               [&](ProcessorProbe supported) { return supported(&helper); });
}

}  // namespace brushworks
