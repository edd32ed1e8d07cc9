#include "library/artistic_effects.h"

#include <new>
#include <vector>

#include "library/class_table.h"
#include "library/frame_processor.h"
#include "library/preset_saver.h"
#include "library/reference.h"
#include "library/statistics.h"

namespace brushworks {

std::int32_t DLLDependentObject::m_nInstanceCount = 0;

bool DLLDependentObject::IsAnyAlive() {
    return std::atomic_ref(m_nInstanceCount).load() != 0;
}

CArtisticEffects::CArtisticEffects() {
    TellStatistics();
}

void CArtisticEffects::TellStatistics() {
    std::vector<const char*> names;
    for (unsigned int index = 0; const Reference<IVideoEffect> effect{NewEffect(index)}; ++index)
        names.push_back(effect->GetName());  // a constant: it outlives the effect
    Statistics().SetEffects(names.data(), static_cast<unsigned int>(names.size()));
}

std::uint32_t CArtisticEffects::QueryInterface(const _GUID& iid, void** face) {
    if (!face) return kNoInterface;
    if (iid == IID_IUnknown || iid == IID_EffectLibrary)
        *face = static_cast<IEffectLibrary*>(this);
    else if (iid == IID_IMultiLingual && m_bTranslated)
        *face = static_cast<IMultiLingual*>(this);
    else
        *face = nullptr;
    if (!*face) return kNoInterface;
    AddRef();
    return kInterfaceFound;
}

std::uint32_t CArtisticEffects::Release() {
    const std::uint32_t left = m_references.Drop();
    if (left == 0) delete this;
    return left;
}

IVideoEffect* CArtisticEffects::CreateEffect(unsigned int index) try {
    return NewEffect(index);
} catch (...) {  // memory ran out: no exception crosses the boundary
    return nullptr;
}

IFrameProcessor* CArtisticEffects::GetFrameProcessor() {
    return new (std::nothrow) FrameProcessor;
}

IPresetSaver* CArtisticEffects::GetPresetSaver() {
    return new (std::nothrow) CPresetSaver;
}

}  // namespace brushworks
