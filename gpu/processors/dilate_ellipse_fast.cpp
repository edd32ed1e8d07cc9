#include "gpu/processors/dilate_ellipse_fast.h"

#include <algorithm>
#include <cmath>

#include "gpu/channel_order.h"
#include "gpu/gl_api.h"
#include "gpu/pixel_formats.h"
#include "gpu/probes.h"
#include "gpu/processors/blur.h"
#include "gpu/processors/copy.h"
#include "gpu/processors/resize.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::GPUProcessors {
namespace {

constexpr int kLongestStep = 8;
constexpr int kMostStages = 100;
constexpr int kLowBlur = 5;

/// The same texture with a smaller region at the same corner.
TextureParams Cut(const TextureParams& texture, int width, int height) {
    TextureParams view = texture;
    view.nWidth = width;
    view.nHeight = height;
    return view;
}

bool IsUsableAs(const TextureParams* texture, const TextureParams& like) {
    return CGPUProcessor::CheckTexture(*texture) &&
           CGPUProcessor::IsTexturesEqual(like, *texture, /*bCompareFormat=*/true);
}

}  // namespace

/// What all stages of one dilation share.
struct CDilateEllipseFast::Shape {
    int radius;
    bool halfY, alphaOnly, max;
};

/// The ellipse of one stage and the rings in it.
struct CDilateEllipseFast::Stage {
    int radiusX, radiusY, stepX, stepY;
};

bool CDilateEllipseFast::AreUsable(const TextureParams& src, const TextureParams& dst, int nRadius,
                                   const TextureParams* pTmp0, const TextureParams* pTmp1) {
    return CheckTexture(src) && IsUsableAs(&dst, src) && (!pTmp0 || IsUsableAs(pTmp0, src)) &&
           (!pTmp1 || IsUsableAs(pTmp1, src)) && nRadius >= 0;
}

bool CDilateEllipseFast::Process(const TextureParams& src, const TextureParams& dst, int nRadius,
                                 bool bHalfY, bool bAlphaOnly, bool bMax, TextureParams* pTmp0,
                                 TextureParams* pTmp1) {
    if (!m_pHelper || !AreUsable(src, dst, nRadius, pTmp0, pTmp1)) return false;
    ScratchProgram program(*m_pHelper);
    if (!program.Make(CommonShaders::ssVertexBiTexture, CommonShaders::ssDilateEllipseFast))
        return false;
    const PixelFormat format = Unswapped(src.pfPixelFormat);
    ScratchTexture own0(*m_pHelper), own1(*m_pHelper);
    if ((!pTmp0 && !own0.Make(src, format)) || (!pTmp1 && !own1.Make(src, format))) return false;

    TextureParams stages[] = {pTmp0 ? *pTmp0 : own0, pTmp1 ? *pTmp1 : own1, src};
    stages[0].pfPixelFormat = stages[1].pfPixelFormat = format;
    int current = 2;
    if (src.pfPixelFormat != format) {
        if (!CResize(m_pHelper).Process(src, stages[0])) return false;
        current = 0;
    }

    const Shape shape = {nRadius, bHalfY, bAlphaOnly, bMax};
    const int goal = (nRadius >> 1) | 1;
    int r = std::min({goal / 4 + 1, kLongestStep, goal}), reachX = 0, reachY = 0;
    for (int i = 0; i < kMostStages && nRadius > 0 && r >= 1; ++i) {
        const int ry = r >> (bHalfY ? 1 : 0);
        reachX += r;
        reachY += ry;
        const int next = (current + 1) % 2;
        const int rest = goal - reachX;
        const Stage stage = {
            r, ry, std::clamp(rest / r, 1, 3),
            std::max(std::clamp((goal - reachY) / r, 1, 3) >> (bHalfY ? 1 : 0), 1)};

        const int lowWidth = std::max(src.nWidth / r, 1);
        const int lowHeight = std::max(src.nHeight / std::max(ry, 1), 1);
        TextureParams low = Cut(dst, lowWidth, lowHeight);
        low.pfPixelFormat = format;  // it is read beside the stages
        TextureParams lowWork = Cut(stages[next], lowWidth, lowHeight);
        if (!CResize(m_pHelper).Process(stages[current], low) ||
            !CBlur(m_pHelper).Process(low, low, kLowBlur, kLowBlur, &lowWork,
                                      /*bCompareFormat=*/true) ||
            !DrawStage(program, shape, stage, stages[current], low, stages[next]))
            return false;

        if (rest < 15) r = 5;
        if (rest <= r) r = rest;
        current = next;
    }
    return CCopy(m_pHelper).Process(stages[current], dst);
}

bool CDilateEllipseFast::DrawStage(GLShaderProgram& program, const Shape& shape, const Stage& stage,
                                   const TextureParams& from, const TextureParams& low,
                                   const TextureParams& next) {
    from.pTexture->SetFilter(GL_NEAREST);
    low.pTexture->SetFilter(GL_LINEAR);
    m_pHelper->Blender().Disable();
    const bool drawn =
        m_pHelper->SetRenderTarget(&next, false, false, false) && m_pHelper->BindShader(program) &&
        program.SetInt1("radiusX", stage.radiusX) && program.SetInt1("radiusY", stage.radiusY) &&
        program.SetInt1("nStepX", stage.stepX) && program.SetInt1("nStepY", stage.stepY) &&
        program.SetInt1("maxFilter", shape.max ? 1 : 0) &&
        program.SetInt1("alphaOnly", shape.alphaOnly ? 1 : 0) &&
        m_pHelper->BuildQuad(from, low, /*bFlip=*/false, nullptr);
    low.pTexture->SetFilter(GL_NEAREST);
    return drawn;
}

bool CDilateEllipseFast::ProcessResize(const TextureParams& src, const TextureParams& dst,
                                       int nRadius, bool bHalfY, bool bAlphaOnly, bool bMax,
                                       TextureParams* pTmp0, TextureParams* pTmp1) {
    constexpr int kFullSize = 20;  // a radius that is worked at full size
    constexpr float kSmallest = 0.5f;
    if (!m_pHelper || !AreUsable(src, dst, nRadius, pTmp0, pTmp1)) return false;
    const auto radius = static_cast<float>(nRadius);
    const float factor =
        nRadius <= kFullSize
            ? 1.0f
            : std::max((std::pow(radius - kFullSize, 0.75f) + kFullSize) / radius, kSmallest);
    const auto scaled = [factor](int size) {
        return std::max(static_cast<int>(static_cast<float>(size) * factor), 1);
    };
    const int width = scaled(src.nWidth), height = scaled(src.nHeight);
    if (width >= src.nWidth && height >= src.nHeight)
        return Process(src, dst, nRadius, bHalfY, bAlphaOnly, bMax, pTmp0, pTmp1);

    const TextureParams view = Cut(dst, width, height);
    if (!Shrink(src, view)) return false;
    ScratchTexture result(*m_pHelper);
    if (!result.Make(width, height, dst.pfPixelFormat)) return false;
    TextureParams tmp0, tmp1;
    if (pTmp0) tmp0 = Cut(*pTmp0, width, height);
    if (pTmp1) tmp1 = Cut(*pTmp1, width, height);
    return Process(view, result, static_cast<int>(factor * radius), bHalfY, bAlphaOnly, bMax,
                   pTmp0 ? &tmp0 : nullptr, pTmp1 ? &tmp1 : nullptr) &&
           CResize(m_pHelper).Process(result, dst);
}

bool CDilateEllipseFast::Shrink(const TextureParams& src, const TextureParams& view) {
    ScratchProgram program(*m_pHelper);
    if (!program.Make(CommonShaders::ssVertexDefault, CommonShaders::ssEnlagre_gauss3x3))
        return false;
    view.pTexture->SetFilter(GL_LINEAR);
    return DrawWith(program, src, view, [&](GLShaderProgram& bound) {
        return bound.SetInt1("SwapChannels", SwapFlag(src.pfPixelFormat, view.pfPixelFormat));
    });
}

bool CDilateEllipseFast::IsSupported() {
    using namespace CommonShaders;
    return m_pHelper && CCopy(m_pHelper).IsSupported() && CResize(m_pHelper).IsSupported() &&
           CBlur(m_pHelper).IsSupported() &&
           IsProgramSupported(*m_pHelper, {&ssVertexBiTexture, &ssDilateEllipseFast}) &&
           IsProgramSupported(*m_pHelper, {&ssVertexDefault, &ssEnlagre_gauss3x3});
}

}  // namespace brushworks::GPUProcessors
