// Posterize on the processor: HSV factors, then fewer levels, in the memory order of blue first.
#include "effects/posterize/posterize.h"

#include <algorithm>

#include "effects/posterize/settings.h"
#include "frames/art_frame.h"
#include "frames/truncate.h"
#include "primitives/arithmetic.h"
#include "primitives/arithmetic_float.h"
#include "primitives/convert.h"
#include "primitives/hsv.h"
#include "primitives/reduce_bits.h"
#include "processors/canvaskit/hsv.h"
#include "processors/channel_reverse.h"
#include "processors/copy.h"
#include "processors/region.h"

namespace brushworks {
namespace {

using posterize::Settings;

constexpr int kNoNoise = 0;

bool ReduceLevels(const CFrame& src, CFrame& dst, const Settings& set) {
    return ippiReduceBits_8u_AC4R(src.m_pBuffer, src.m_nByteSpan, dst.m_pBuffer, dst.m_nByteSpan,
                                  Processors::CommonSize(src, dst), kNoNoise, set.dither,
                                  set.levels) == kStatusOk;
}

bool PaintBGRA8(RenderJob& job, const Settings& set) {
    CFrame scratch;
    scratch.Init(job.source.m_nWidth, job.source.m_nHeight, 4, &job.allocator, PixelFormatBGRA8,
                 false);
    return Canvaskit::CHSV().Process(job.source, scratch, set.hue, set.saturation, set.value) &&
           ReduceLevels(scratch, job.destination, set);
}

bool PaintARGB8(RenderJob& job, const Settings& set) {
    CFrame scratch;
    scratch.Init(job.source.m_nWidth, job.source.m_nHeight, 4, &job.allocator, PixelFormatARGB8,
                 false);
    Processors::CChannelReverse().Process(&job.source, &scratch);
    if (!Canvaskit::CHSV().Process(scratch, scratch, set.hue, set.saturation, set.value))
        return false;
    const bool reduced = ReduceLevels(scratch, job.destination, set);
    Processors::CChannelReverse().Process(&job.destination, &job.destination);
    return reduced;
}

/// The colour work of the float formats: B, G, R, A in memory, through 16-bit samples. All but the
/// reduction goes strip by strip, so that the float samples stay in the cache.
class FloatPainter {
  public:
    FloatPainter(RenderJob& job, const Settings& set) : m_job(job), m_set(set) {}

    void Paint() {
        const CFrame& source = m_job.source;
        const int rows = std::min(kStripRows, source.m_nHeight);
        m_strip.Init(source.m_nWidth, rows, source.m_nDepth, &m_job.allocator, PixelFormatARGB32f,
                     source.m_bFlipped);
        m_hsv.Init(source.m_nWidth, rows, 4, 2);
        m_pixels.Init(source.m_nWidth, source.m_nHeight, 4, 2);
        for (int y = 0; y < source.m_nHeight; y += rows) TakeIn(y);
        const IppiSize size = Processors::SizeOf(source);
        ippiReduceBits_16u_AC4R(m_pixels.words(), m_pixels.m_nByteSpan, m_pixels.words(),
                                m_pixels.m_nByteSpan, size, kNoNoise, m_set.dither, m_set.levels);
        for (int y = 0; y < source.m_nHeight; y += rows) GiveBack(y);
    }

  private:
    static constexpr int kStripRows = 8;
    static constexpr int kFactorShift = 7;

    /// A view of the rows of a strip.
    void View(CFrame& view, CFrame& frame, int y) const {
        const int rows = std::min(m_strip.m_nHeight, frame.m_nHeight - y);
        view.Init(&frame, 0, y, frame.m_nWidth, rows, frame.m_bFlipped);
    }

    /// Alpha comes first in one of the two formats and last in the strip.
    void Move(CFrame& from, CFrame& to) const {
        if (m_job.source.m_pfPixelFormat == PixelFormatARGB32f)
            Processors::CChannelReverse().Process(&from, &to);
        else
            Processors::CCopy().Process(&from, &to);
    }

    std::uint16_t* PixelRow(int y) const {
        return reinterpret_cast<std::uint16_t*>(
            m_pixels.m_pBuffer + static_cast<std::ptrdiff_t>(y) * m_pixels.m_nByteSpan);
    }

    /// From the source's floats to 16-bit samples with their hue, saturation and value scaled.
    void TakeIn(int y) {
        constexpr float kUp[3] = {65535.0f, 65535.0f, 65535.0f};
        constexpr int kFinancialRounding = 2;
        auto factor = [](float f) {
            return static_cast<std::uint16_t>(Truncate(f * (1 << kFactorShift)));
        };
        const std::uint16_t factors[4] = {factor(m_set.hue), factor(m_set.saturation),
                                          factor(m_set.value), 1 << kFactorShift};
        CFrame source;
        View(source, m_job.source, y);
        Move(source, m_strip);
        const IppiSize size = Processors::SizeOf(source);
        auto* floats = Processors::Samples<float>(m_strip);
        ippiMulC_32f_AC4IR(kUp, floats, m_strip.m_nByteSpan, size);
        ippiConvert_32f16u_AC4R(floats, m_strip.m_nByteSpan, PixelRow(y), m_pixels.m_nByteSpan,
                                size, kFinancialRounding);
        ippiRGBToHSV_16u_AC4R(PixelRow(y), m_pixels.m_nByteSpan, m_hsv.words(), m_hsv.m_nByteSpan,
                              size);
        ippiMulC_16u_AC4IRSfs(factors, m_hsv.words(), m_hsv.m_nByteSpan, size, kFactorShift);
        ippiHSVToRGB_16u_AC4R(m_hsv.words(), m_hsv.m_nByteSpan, PixelRow(y), m_pixels.m_nByteSpan,
                              size);
    }

    /// From 16-bit samples to the destination's floats.
    void GiveBack(int y) {
        constexpr float kDown[3] = {1.5259022e-05f, 1.5259022e-05f, 1.5259022e-05f};
        CFrame destination;
        View(destination, m_job.destination, y);
        const IppiSize size = Processors::SizeOf(destination);
        auto* floats = Processors::Samples<float>(m_strip);
        ippiConvert_16u32f_AC4R(PixelRow(y), m_pixels.m_nByteSpan, floats, m_strip.m_nByteSpan,
                                size);
        ippiMulC_32f_AC4IR(kDown, floats, m_strip.m_nByteSpan, size);
        Move(m_strip, destination);
    }

    RenderJob& m_job;
    const Settings& m_set;
    CFrame m_strip;      // floats, alpha last
    CArtFrame m_hsv;     // the strip's hue, saturation and value
    CArtFrame m_pixels;  // the whole picture
};

}  // namespace

bool CPosterize::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    switch (job.source.m_pfPixelFormat) {
        case PixelFormatBGRA8:
            return PaintBGRA8(job, set);
        case PixelFormatARGB8:
            return PaintARGB8(job, set);
        case PixelFormatBGRA32f:
        case PixelFormatARGB32f:
            FloatPainter(job, set).Paint();
            return true;
        default:
            return true;  // no colour work for other layouts
    }
}

}  // namespace brushworks
