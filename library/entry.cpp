// The two exported functions, and what happens as the library loads.
#include "library/artistic_effects.h"
#include "processors/optimize.h"

namespace brushworks {
namespace {

const Processors::COptimize g_optimize;

}  // namespace

extern "C" {

IEffectLibrary* GetEffectsLibrary() try {
    return new CArtisticEffects;
} catch (...) {  // memory ran out: no exception crosses the boundary
    return nullptr;
}

bool CanUnloadDLLNow() {
    return !DLLDependentObject::IsAnyAlive();
}
}

}  // namespace brushworks
