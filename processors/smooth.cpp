#include "processors/smooth.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

#include "frames/fast_math.h"
#include "frames/memory_allocator.h"
#include "frames/samples.h"
#include "frames/truncate.h"
#include "primitives/smooth.h"
#include "processors/color_space_converter.h"
#include "processors/region.h"

namespace brushworks::Processors {
namespace {

/// What a flat neighbourhood's weights of the whole kernel add up to at least, of 256, where whole
/// weights do.
constexpr int kLeastHeld = 64;

/// About exp(-t): the reciprocal of a cut-off series. It falls with t, rounding included.
float Falloff(float t) {
    const float t2 = t * t, t3 = t2 * t, t4 = t3 * t, t5 = t4 * t;
    return 1.0f / (1.0f + t + t2 * 0.5f + t3 * 0.16666667f + t4 * 0.041666668f + t5 * 0.008333333f);
}

bool HasData(const CFrame* frame) {
    return frame && frame->m_pBuffer;
}

/// Taps of the span, an odd number: it grows with the picture's height.
int SpanOf(int height, float radius, bool doubled) {
    constexpr float kReferenceHeight = 240.0f, kTapsPerRadius = 15.0f;
    const float reach = (doubled ? 2.0f : 1.0f) * (static_cast<float>(height) / kReferenceHeight) *
                        radius * kTapsPerRadius;
    return std::clamp(Truncate(reach), 1, CSmooth::kLargestSpan / 2) * 2 + 1;
}

/// `scratch` can take the picture between the passes.
bool Serves(const CFrame* scratch, const CFrame& src, const CFrame& dst, IppiSize size) {
    return HasData(scratch) && scratch->m_nDepth == src.m_nDepth &&
           scratch->m_nWidth >= size.width && scratch->m_nHeight >= size.height &&
           scratch->m_pBuffer != src.m_pBuffer && scratch->m_pBuffer != dst.m_pBuffer;
}

/// The frame that `frame` is converted to: `work` where it serves, else `own`; null without memory.
CFrame* ConversionTarget(const CFrame& frame, CFrame* work, CFrame& own,
                         MemoryAllocator* allocator) {
    if (HasData(work) && work->m_pfPixelFormat != PixelFormatBGRA8) return work;
    return own.Init(frame.m_nWidth, frame.m_nHeight, 4, allocator, PixelFormatBGRA8, false)
               ? &own
               : nullptr;
}

}  // namespace

void CSmooth::FillGaussKernel(int size, float sigma) {
    if (size < 1 || size > kLargestSpan) return;
    constexpr float kLeastVariance = 1e-06f;
    constexpr int kCentre = 255 * 255;
    const float variance = sigma * sigma;
    const float a = variance >= kLeastVariance ? 0.5f / variance : 500000.0f;
    const float step = (1.1f - sigma) / static_cast<float>(size - 1);
    float x = (1.1f - sigma) * -0.5f;
    int sum = 0;
    for (int i = 0; i < size / 2; ++i) {
        const int weight = Truncate(Falloff(x * x * a) * 255.0f * 255.0f + 0.5f);
        m_anKernel[i] = m_anKernel[size - 1 - i] = weight;
        sum += weight;
        x += step;
    }
    m_anKernel[size / 2] = kCentre;
    sum = 2 * sum + kCentre;

    // Whole weights that add up to 256 are few steps each where taps are many, and are lost in
    // rounding in the end: then the picture would darken, and finer weights are taken.
    const int total = sum >> 8;
    const int held = std::accumulate(m_anKernel, m_anKernel + size, 0, [&](int all, int weight) {
        return all + (255 * (weight / total) >> 8);
    });
    m_nUnit = held >= kLeastHeld ? kSmoothUnit : kFineSmoothUnit;
    const int divisor = m_nUnit == kSmoothUnit ? total : std::max(sum >> 16, 1);
    for (int i = 0; i < size; ++i) m_anKernel[i] /= divisor;
}

void CSmooth::FillRangeTable(float range) {
    const float cube = range * range * range;
    const float f = cube < 0.0001f ? 10000.0f : 1.0f / cube;
    for (int i = 0; i < 256; ++i) {
        const float x = static_cast<float>(i) * (f / 1.4142135f) * kByteToFloat;
        m_anRange[255 + i] = m_anRange[255 - i] = Truncate(Falloff(x * x) * 255.0f + 0.5f);
    }
}

void CSmooth::FillToneTable(float tone) {
    const std::int64_t lift = Truncate(tone * 5.0f);
    for (int i = 0; i < 256; ++i) {
        const float level = static_cast<float>(i) * kByteToFloat;
        const float s = LFMath::FastSin((level - 0.5f) * 3.1415927f);
        const float value =
            (1.0f - tone) * static_cast<float>(i) * kByteToFloat + (s * 0.5f + 0.5f) * tone;
        m_abTone[i] = static_cast<unsigned char>(
            std::clamp<std::int64_t>(Truncate(value * 255.0f + 0.5f) + lift, 0, 255));
    }
}

template <class Smooth>
void CSmooth::Render(CFrame& src, CFrame& dst, CFrame* scratch, MemoryAllocator* allocator,
                     float spatial, float range, float radius, float tone, bool doubled,
                     Smooth* rows, Smooth* columns) {
    const IppiSize size = CommonSize(src, dst);
    CFrame own;
    if (!Serves(scratch, src, dst, size)) {
        if (!own.Init(size.width, size.height, src.m_nDepth, allocator, src.m_pfPixelFormat, false))
            return;
        scratch = &own;
    }
    const int span = SpanOf(size.height, radius, doubled);
    FillGaussKernel(span, spatial * spatial);
    FillRangeTable(range);
    FillToneTable(tone);
    const SmoothWeights weights = {span / 2, m_nUnit, m_anKernel, m_anRange + 255, m_abTone};
    if (rows(src.m_pBuffer, src.m_nByteSpan, scratch->m_pBuffer, scratch->m_nByteSpan, size,
             &weights) == kStatusOk)
        columns(scratch->m_pBuffer, scratch->m_nByteSpan, dst.m_pBuffer, dst.m_nByteSpan, size,
                &weights);
}

void CSmooth::Render_8u_C1R(CFrame* src, CFrame* dst, CFrame* scratch, MemoryAllocator* allocator,
                            float spatial, float range, float radius, float tone, bool doubled) {
    const auto serves = [](const CFrame* frame) {
        return HasData(frame) && frame->m_pfPixelFormat == PixelFormatMono8 && frame->m_nDepth == 1;
    };
    if (serves(src) && serves(dst))
        Render(*src, *dst, scratch, allocator, spatial, range, radius, tone, doubled,
               SmoothRows_8u_C1R, SmoothColumns_8u_C1R);
}

void CSmooth::Render_8u_AC4R(CFrame* src, CFrame* dst, CFrame* scratch, MemoryAllocator* allocator,
                             float spatial, float range, float radius, float tone, bool doubled) {
    const auto serves = [](const CFrame* frame) { return HasData(frame) && frame->m_nDepth == 4; };
    if (serves(src) && serves(dst))
        Render(*src, *dst, scratch, allocator, spatial, range, radius, tone, doubled,
               SmoothRows_8u_AC4R, SmoothColumns_8u_AC4R);
}

void CSmooth::Process(CFrame* src, CFrame* dst, CFrame* scratch, MemoryAllocator* allocator,
                      float spatial, float range, float radius, float tone, bool doubled,
                      CFrame* srcWork, CFrame* dstWork) {
    if (!HasData(src) || !HasData(dst)) return;
    if (src->m_pfPixelFormat == PixelFormatMono8 && dst->m_pfPixelFormat == PixelFormatMono8) {
        Render_8u_C1R(src, dst, scratch, allocator, spatial, range, radius, tone, doubled);
        return;
    }
    CFrame ownSrc, ownDst;
    CColorSpaceConverter convert;
    CFrame* from = src;
    if (src->m_pfPixelFormat != PixelFormatBGRA8) {
        from = ConversionTarget(*src, srcWork, ownSrc, allocator);
        if (!from || !convert.Process(src, from)) return;
    }
    CFrame* to = dst;
    if (dst->m_pfPixelFormat != PixelFormatBGRA8) {
        to = ConversionTarget(*dst, dstWork, ownDst, allocator);
        // Converted now, so that alpha, which the smoothing leaves alone, comes back with the rest.
        if (!to || !convert.Process(dst, to)) return;
    }
    Render_8u_AC4R(from, to, scratch, allocator, spatial, range, radius, tone, doubled);
    if (to != dst) convert.Process(to, dst);
}

}  // namespace brushworks::Processors
