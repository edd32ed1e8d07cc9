// What an effect asks of a card before it says that it can render there.
#pragma once

#include <span>

#include "gpu/gpu_helper.h"

namespace brushworks {

/// Stages of a program; without a geometry stage that record is empty.
struct ProgramProbe {
    const ShaderStruct* vertex;
    const ShaderStruct* fragment;
    const ShaderStruct* geometry = nullptr;
};

/// The IsSupported of a GPU processor.
using ProcessorProbe = bool (*)(GPUHelper*);

/// Asked in this order, programs before processors; the first failure settles the answer.
struct GPUProbes {
    std::span<const ProgramProbe> programs;
    std::span<const ProcessorProbe> processors;
    bool bImpossible = false;  ///< the card lacks what no program can make up for
};

/// The card compiles this program. It is freed at once.
bool IsProgramSupported(GPUHelper& helper, const ProgramProbe& probe);

/// The card passes all probes.
bool ArePassed(GPUHelper& helper, const GPUProbes& probes);

/// A ProcessorProbe from a processor's class.
template <typename Processor>
bool Asks(GPUHelper* helper) {
    return Processor(helper).IsSupported();
}

}  // namespace brushworks
