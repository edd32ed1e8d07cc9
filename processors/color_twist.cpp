// The colour matrix on frames: strip by strip, so that the steps of a strip meet in the cache.
#include "processors/color_twist.h"

#include <algorithm>

#include "primitives/colour_twist.h"
#include "primitives/rescale.h"
#include "processors/channel_reverse.h"
#include "processors/copy.h"
#include "processors/copy_plane.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// What a strip may take of the second-level cache.
constexpr int kStripBytes = 64 * 1024;

/// Twists the colours of frames with alpha last.
void Twist(const CFrame& src, const CFrame& dst, const float (*matrix)[4]) {
    const IppiSize size = CommonSize(src, dst);
    if (IsFloatColor(src))
        ippiColorTwist_32f_AC4R(Samples<float>(src), src.m_nByteSpan, Samples<float>(dst),
                                dst.m_nByteSpan, size, matrix);
    else
        ippiColorTwist32f_8u_AC4R(src.m_pBuffer, src.m_nByteSpan, dst.m_pBuffer, dst.m_nByteSpan,
                                  size, matrix);
}

/// Reverses the channels from one frame to another.
void Reverse(CFrame& src, CFrame& dst) {
    if (IsFloatColor(src))
        CChannelReverse().Process32f(&src, &dst);
    else
        ReverseBytes_C4R(src.m_pBuffer, src.m_nByteSpan, dst.m_pBuffer, dst.m_nByteSpan,
                         CommonSize(src, dst));
}

/// Twists frames with alpha first by way of `reversed`, which is as large as they are.
void TwistReversed(CFrame& src, CFrame& dst, CFrame& reversed, const float (*matrix)[4]) {
    if (!reversed.m_pBuffer) return;
    Reverse(src, reversed);
    Twist(reversed, reversed, matrix);
    CColorTwist().ClampValues(&reversed);
    Reverse(reversed, dst);
}

/// The cut to 0..1 goes over the whole destination; the strips have left out what lies beyond the
/// common rectangle.
void ClampOutside(CFrame& dst, IppiSize common) {
    CFrame right, below;
    right.Init(&dst, common.width, 0, dst.m_nWidth - common.width, common.height, false);
    below.Init(&dst, 0, common.height, dst.m_nWidth, dst.m_nHeight - common.height, false);
    CColorTwist().ClampValues(&right);
    CColorTwist().ClampValues(&below);
}

bool HasAlphaFirst(const CFrame& f) {
    return f.m_pfPixelFormat == PixelFormatARGB8 || f.m_pfPixelFormat == PixelFormatARGB32f;
}

}  // namespace

bool CColorTwist::Process(CFrame* src, CFrame* dst, float contrast, float brightness,
                          float saturation, float hue, unsigned int color, float colorAmount,
                          MemoryAllocator& allocator) {
    const int alpha = AlphaPlane(*src);
    if (!IsByteColor(*src) && !IsFloatColor(*src)) {
        CCopy().Process(src, dst);
        CCopyPlane().Process(src, dst, alpha, alpha);
        return true;
    }
    float matrix[3][4];
    GetMatrix(contrast, brightness, saturation, hue, color, colorAmount, src->m_pfPixelFormat,
              matrix, /*keepOrder=*/true);

    const IppiSize size = CommonSize(*src, *dst);
    if (size.width < 1 || size.height < 1 || !src->m_pBuffer || !dst->m_pBuffer) return true;

    const bool floats = IsFloatColor(*src);
    const int depth = floats ? 16 : 4;
    const int stripRows = std::clamp(kStripBytes / depth / size.width, 1, size.height);
    CFrame reversed;
    if (HasAlphaFirst(*src))
        reversed.Init(size.width, stripRows, depth, &allocator,
                      floats ? PixelFormatBGRA32f : PixelFormatBGRA8, src->m_bFlipped);
    // Reversed bytes have their alpha with them, uncut.
    const bool alphaCame = reversed.m_pBuffer && !floats;
    for (int y = 0; y < size.height; y += stripRows) {
        const int rows = std::min(stripRows, size.height - y);
        CFrame from, to;
        from.Init(src, 0, y, size.width, rows, src->m_bFlipped);
        to.Init(dst, 0, y, size.width, rows, dst->m_bFlipped);
        if (HasAlphaFirst(*src)) {
            TwistReversed(from, to, reversed, matrix);
        } else {
            Twist(from, to, matrix);
            if (floats) ClampValues(&to);
        }
        if (!alphaCame) CCopyPlane().Process(&from, &to, alpha, alpha);
    }
    if (src->m_pfPixelFormat == PixelFormatBGRA32f) ClampOutside(*dst, size);
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
            const float raised = row[i] > 0.0f ? row[i] : 0.0f;
            row[i] = raised < 1.0f ? raised : 1.0f;
        }
    }
    return true;
}

}  // namespace brushworks::Processors
