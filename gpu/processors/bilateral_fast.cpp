#include "gpu/processors/bilateral_fast.h"

#include <algorithm>
#include <cmath>

#include "gpu/channel_order.h"
#include "gpu/probes.h"
#include "gpu/processors/copy.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {

namespace {

/// What the shader's exponent is made of.
struct Weights {
    int nKernelHalfSize;
    float fPosScale;
    float fValScale;
    float fPosAdjustment;

    Weights(int kernel, float valSigma, float posSigma) : nKernelHalfSize(kernel >> 1) {
        // As steep as it needs to be; an infinite scale would make no number of equal colours.
        constexpr float kSteepest = -1e30f;
        const int n = std::max(nKernelHalfSize, 1);
        const float reach = (1.1f - posSigma) * 0.5f;
        const float variance = posSigma * posSigma;
        float sum = 0;
        for (int i = 1; i <= nKernelHalfSize; ++i) {
            const float t = reach * static_cast<float>(i) / static_cast<float>(n);
            sum += std::exp(-(t * t) / (2 * variance));
        }
        const float d = std::abs(reach / static_cast<float>(n));
        fPosScale = -0.5f / variance * (d * d);
        fValScale = std::max(-0.5f / (valSigma * valSigma), kSteepest);
        fPosAdjustment = -std::log(1 + 2 * sum);
    }
};

}  // namespace

bool CBilateralFast::ProcessDirection(const TextureParams& src, const TextureParams& dst,
                                      int nKernel, float fValSigma, float fPosSigma,
                                      Direction eDirection) {
    if (!m_pHelper || !CheckTexture(src) || !CheckTexture(dst) ||
        !IsTexturesEqual(src, dst, /*bCompareFormat=*/false) || nKernel < 0)
        return false;
    if (nKernel < 1) return CCopy(m_pHelper).Process(src, dst);
    if (eDirection != kVertical && eDirection != kHorizontal) return false;
    const Weights weights(nKernel, fValSigma, fPosSigma);
    const int swap = SwapFlag(src.pfPixelFormat, dst.pfPixelFormat);
    return Draw(eDirection == kVertical ? CommonShaders::ssBilateralFast_Vertical
                                        : CommonShaders::ssBilateralFast_Horizontal,
                src, dst, [&](GLShaderProgram& program) {
                    return program.SetInt1("nKernelHalfSize", weights.nKernelHalfSize) &&
                           program.SetFloat1("fPosScale", weights.fPosScale) &&
                           program.SetFloat1("fValScale", weights.fValScale) &&
                           program.SetFloat1("fPosAdjustment", weights.fPosAdjustment) &&
                           program.SetInt1("SwapChannels", swap);
                });
}

bool CBilateralFast::IsSupported() {
    using namespace CommonShaders;
    return CCopy(m_pHelper).IsSupported() &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssBilateralFast_Vertical}) &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssBilateralFast_Horizontal});
}

}  // namespace brushworks::GPUProcessors
