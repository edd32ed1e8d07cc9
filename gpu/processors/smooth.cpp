#include "gpu/processors/smooth.h"

#include <algorithm>

#include "frames/truncate.h"
#include "gpu/channel_order.h"
#include "gpu/probes.h"
#include "gpu/processors/bilateral_fast.h"
#include "gpu/processors/copy.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

namespace {

/// Texels of the span, an odd number: it grows with the picture's height.
int SpanOf(int height, float radius, bool doubled) {
    constexpr float kReferenceHeight = 240.0f, kTapsPerRadius = 15.0f;
    constexpr int kLeast = 3, kLargest = 619;
    const float reach = (doubled ? 2.0f : 1.0f) * (static_cast<float>(height) / kReferenceHeight) *
                        radius * kTapsPerRadius;
    return std::clamp(2 * std::min(Truncate(reach), kLargest), kLeast, kLargest) | 1;
}

}  // namespace

bool CSmooth::Process(const TextureParams& src, const TextureParams& dst, float fPos, float fVal,
                      float fRadius, float fContrast, bool bDouble) {
    using namespace CommonShaders;
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst)) return false;
    if (fRadius <= 0) return CCopy(m_pHelper).Process(src, dst);

    ScratchTexture work(*m_pHelper);
    ScratchProgram contrast(*m_pHelper);
    if (!work.Make(src, IsSwapped(src.pfPixelFormat) ? PixelFormatARGB8 : PixelFormatBGRA8) ||
        !contrast.Make(ssVertexDefault, ssSmooth_Contrast))
        return false;
    const float posSigma = std::max(fPos * fPos, 0.0001f);
    const float valSigma = fVal * fVal * fVal;
    const int span = SpanOf(src.nHeight, fRadius, bDouble);

    const auto smoothToWork = [&](const TextureParams& from, CBilateralFast::Direction direction) {
        return CBilateralFast(m_pHelper).ProcessDirection(from, work, span, valSigma, posSigma,
                                                          direction);
    };
    const auto contrastToTarget = [&] {
        return DrawWith(contrast, work, dst, [&](GLShaderProgram& program) {
            return program.SetInt1("SwapChannelsSrc", SwapFlag(work.pfPixelFormat)) &&
                   program.SetInt1("SwapChannelsDst", SwapFlag(dst.pfPixelFormat)) &&
                   program.SetFloat1("fContrast", fContrast);
        });
    };
    return smoothToWork(src, CBilateralFast::kHorizontal) && contrastToTarget() &&
           smoothToWork(dst, CBilateralFast::kVertical) && contrastToTarget();
}

bool CSmooth::IsSupported() {
    using namespace CommonShaders;
    return CCopy(m_pHelper).IsSupported() && CBilateralFast(m_pHelper).IsSupported() &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssSmooth_Contrast});
}

}  // namespace brushworks::GPUProcessors
