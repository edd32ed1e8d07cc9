#include "library/base_effect_helper.h"

#include "library/licensing.h"
#include "library/statistics.h"

namespace brushworks {

bool CBaseEffectHelper::AllowWatermark() {
    return true;
}

void CBaseEffectHelper::AddWatermark(const char* name, IVideoHost* host, FrameParams* frame,
                                     float strength) {
    if (Licensing().IsMarkRequired()) Licensing().DrawMark(name, host, frame, strength);
}

void CBaseEffectHelper::AddWatermark(IVideoHost* host, FrameParams* frame, float strength) {
    AddWatermark(nullptr, host, frame, strength);
}

void CBaseEffectHelper::AddWatermarkGL(GPUHelper* helper, const char* name, TextureParams* source,
                                       TextureParams* destination, float strength) {
    if (Licensing().IsMarkRequired())
        Licensing().DrawMarkGL(helper, name, source, destination, strength);
}

void CBaseEffectHelper::AddWatermarkGL(GPUHelper* helper, TextureParams* source,
                                       TextureParams* destination, float strength) {
    AddWatermarkGL(helper, nullptr, source, destination, strength);
}

bool CBaseEffectHelper::AllowUsageStatistics() {
    return true;
}

void CBaseEffectHelper::AddUsageStatistics(const char* effect, FrameParams* frame) {
    Statistics().ReportRender(effect, frame);
}

}  // namespace brushworks
