#include "frames/aspect.h"

#include <cmath>

#include "frames/truncate.h"

namespace brushworks {

void AspectHelper::Init(const RenderInfo* info, bool fieldsHalveHeight, bool keepAxis) {
    const bool aspectKnown = info && (info->dwFlags & kRenderHasPixelAspect);
    fAspect = aspectKnown ? static_cast<float>(info->dPixelAspect) : 1.0f;
    bAspectApplied = aspectKnown;
    if (fieldsHalveHeight && info && info->nFieldMode != kFieldModeFrame) {
        fAspect *= 2.0f;
        bAspectApplied = true;
    }
    fAxisX = fAxisY = 1.0f;
    bAxisFree = true;
    if (fAspect > 1.0f) {
        fAxisX = fAspect;
        bAxisFree = !keepAxis;
    } else if (aspectKnown) {
        fAxisY = 1.0f / fAspect;
    }
    const float length = std::sqrt(fAxisX * fAxisX + fAxisY * fAxisY);
    if (length > 0.0f) {
        fAxisX /= length;
        fAxisY /= length;
    }
    nAspect1024 = Truncate(fAspect * 1024.0f);
}

}  // namespace brushworks
