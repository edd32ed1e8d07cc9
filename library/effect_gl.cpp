// What all effects share of a render on the graphics card, and of the question whether there can be
// one.
#include <algorithm>

#include "gpu/gl_lookup.h"
#include "gpu/host_gl.h"
#include "library/effect.h"
#include "library/field_mode.h"
#include "library/licensing.h"

namespace brushworks {

bool CEffect::GetGPUProbes(GPUProbes&) const {
    return true;
}

bool CEffect::GetGPUCapsGL(IVideoHost* pHost, GPUCaps* pCaps, unsigned int) try {
    const HostGL hostGL(pHost);
    GPUProbes probes;
    if (!hostGL || !pCaps || !GetGPUProbes(probes)) return false;
    const bool allowed = Licensing().IsGPUAllowed();
    const bool supported = RefreshFeatures(*this) && ArePassed(*this, probes) && HasGLPath();
    *pCaps = {.nReserved = 0, .nGPUSupported = supported ? 1 : 0, .bGPUAllowed = allowed};
    return true;
} catch (...) {  // memory ran out: no exception crosses the boundary
    return false;
}

bool CEffect::RenderGL(IVideoHost* pHost, TextureParams* pSrc, TextureParams*, TextureParams* pDst,
                       RenderInfo* pInfo) try {
    const Parameters parameters(*pHost, m_tables);
    GPURenderJob job{parameters, pHost, *pSrc, *pDst, pInfo, AreFields(pInfo)};
    const bool painted = PaintGL(job);
    if (AllowUsageStatistics()) AddUsageStatistics(GetName(), nullptr);
    return painted;
} catch (...) {  // memory ran out: no exception crosses the boundary
    return false;
}

bool CEffect::PaintGL(GPURenderJob&) {
    return false;
}

void CEffect::StartPasses(const GPURenderJob& job) {
    SetGLStates();
    ConfigProjectionMatrix(
        static_cast<float>(std::min(job.source.nWidth, job.destination.nWidth)),
        static_cast<float>(std::min(job.source.nHeight, job.destination.nHeight)));
    ConfigModelViewMatrix();
}

bool CEffect::FinishPasses(GPURenderJob& job, TextureParams& result) {
    result.bFlipped = job.source.bFlipped;
    Context()->UseProgram(nullptr);
    if (AllowWatermark()) AddWatermarkGL(this, &result, &job.destination, 1.0f);
    return CopyWithConvert(&result, &job.destination);
}

}  // namespace brushworks
