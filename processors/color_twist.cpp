// The colour matrix on frames, in one pass.
#include "processors/color_twist.h"

#include "primitives/colour_twist.h"
#include "processors/copy.h"
#include "processors/copy_plane.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

float CutToUnit(float sample) {
    const float raised = sample > 0.0f ? sample : 0.0f;
    return raised < 1.0f ? raised : 1.0f;
}

/// In place nothing brings back the alpha that the cut to 0..1 has gone over.
void ClampAlpha(CFrame& frame, IppiSize size, int plane) {
    for (int y = 0; y < size.height; ++y) {
        float* alpha = RowOf<float>(frame, y) + plane;
        for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{4} * size.width; i += 4)
            alpha[i] = CutToUnit(alpha[i]);
    }
}

/// The cut to 0..1 goes over the whole destination; the matrix has left out what lies beyond the
/// common rectangle.
void ClampOutside(CFrame& dst, IppiSize common) {
    CFrame right, below;
    right.Init(&dst, common.width, 0, dst.m_nWidth - common.width, common.height, false);
    below.Init(&dst, 0, common.height, dst.m_nWidth, dst.m_nHeight - common.height, false);
    CColorTwist().ClampValues(&right);
    CColorTwist().ClampValues(&below);
}

}  // namespace

bool CColorTwist::Process(CFrame* src, CFrame* dst, float contrast, float brightness,
                          float saturation, float hue, unsigned int color, float colorAmount,
                          MemoryAllocator&) {
    const int plane = RestoredPlane(*src);
    if (!IsByteColor(*src) && !IsFloatColor(*src)) {
        CCopy().Process(src, dst);
        CCopyPlane().Process(src, dst, plane, plane);
        return true;
    }
    float matrix[3][4];
    GetMatrix(contrast, brightness, saturation, hue, color, colorAmount, src->m_pfPixelFormat,
              matrix, /*keepOrder=*/true);

    const IppiSize size = CommonSize(*src, *dst);
    if (size.width < 1 || size.height < 1 || !src->m_pBuffer || !dst->m_pBuffer) return true;
    const AlphaAt alpha = plane == 0 ? AlphaAt::kFirst : AlphaAt::kLast;
    if (IsFloatColor(*src))
        TwistUnit_C4R(Samples<float>(*src), src->m_nByteSpan, Samples<float>(*dst),
                      dst->m_nByteSpan, size, matrix, alpha);
    else
        TwistBytes_C4R(src->m_pBuffer, src->m_nByteSpan, dst->m_pBuffer, dst->m_nByteSpan, size,
                       matrix, alpha);
    if (src->m_pfPixelFormat == PixelFormatBGRA32f) ClampOutside(*dst, size);
    if (IsFloatColor(*src) && src->m_pBuffer == dst->m_pBuffer) ClampAlpha(*dst, size, plane);
    return true;
}

bool CColorTwist::Process(CFrame* src, CFrame* dst, float contrast, float brightness,
                          float saturation, float hue, MemoryAllocator& allocator) {
    return Process(src, dst, contrast, brightness, saturation, hue, 0xffffffff, 0.5f, allocator);
}

bool CColorTwist::ClampValues(CFrame* frame) {
    if (frame->m_pfPixelFormat != PixelFormatBGRA32f) return false;
    for (int y = 0; y < frame->m_nHeight; ++y) {
        float* row = RowOf<float>(*frame, y);
        for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{4} * frame->m_nWidth; ++i) {
            row[i] = CutToUnit(row[i]);
        }
    }
    return true;
}

}  // namespace brushworks::Processors
