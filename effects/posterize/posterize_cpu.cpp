// Posterize on the processor: HSV factors, then fewer levels, in the memory order of blue first.
#include "effects/posterize/posterize.h"

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

enum Param : unsigned int { kColorShift, kColor, kBrightness, kLevels, kDither };

constexpr int kNoNoise = 0;

/// What the controls ask for.
struct Settings {
    float hue;  ///< factors from 0.5 to 1.5; 1.0 is neutral
    float saturation;
    float value;
    int levels;  ///< 2 to 9
    int dither;  ///< the primitive's dither kind

    explicit Settings(const Parameters& p)
        : hue(p.Slider(kColorShift) + 0.5f),
          saturation(p.Slider(kColor) + 0.5f),
          value(p.Slider(kBrightness) + 0.5f),
          levels(p.Option(kLevels) + 2),
          dither(p.Option(kDither)) {}
};

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

/// The colour work of the float formats, on B, G, R, A in memory, through 16-bit samples.
void ReduceFloat(CFrame& frame, const Settings& set) {
    constexpr float kUp[3] = {65535.0f, 65535.0f, 65535.0f};
    constexpr float kDown[3] = {1.5259022e-05f, 1.5259022e-05f, 1.5259022e-05f};
    constexpr int kFinancialRounding = 2;
    constexpr int kFactorShift = 7;
    auto factor = [](float f) {
        return static_cast<std::uint16_t>(Truncate(f * (1 << kFactorShift)));
    };
    const std::uint16_t factors[4] = {factor(set.hue), factor(set.saturation), factor(set.value),
                                      1 << kFactorShift};

    const IppiSize size = Processors::SizeOf(frame);
    auto* samples = Processors::Samples<float>(frame);
    ippiMulC_32f_AC4IR(kUp, samples, frame.m_nByteSpan, size);
    CArtFrame first, second;
    if (!first.Init(size.width, size.height, 4, 2) || !second.Init(size.width, size.height, 4, 2))
        return;
    const int span = first.m_nByteSpan;
    ippiConvert_32f16u_AC4R(samples, frame.m_nByteSpan, first.words(), span, size,
                            kFinancialRounding);
    ippiRGBToHSV_16u_AC4R(first.words(), span, second.words(), span, size);
    ippiMulC_16u_AC4IRSfs(factors, second.words(), span, size, kFactorShift);
    ippiHSVToRGB_16u_AC4R(second.words(), span, first.words(), span, size);
    ippiReduceBits_16u_AC4R(first.words(), span, second.words(), span, size, kNoNoise, set.dither,
                            set.levels);
    ippiConvert_16u32f_AC4R(second.words(), span, samples, frame.m_nByteSpan, size);
    ippiMulC_32f_AC4IR(kDown, samples, frame.m_nByteSpan, size);
}

void PaintFloat(RenderJob& job, const Settings& set) {
    const bool alphaFirst = job.source.m_pfPixelFormat == PixelFormatARGB32f;
    auto move = [alphaFirst](CFrame& from, CFrame& to) {
        if (alphaFirst)
            Processors::CChannelReverse().Process(&from, &to);
        else
            Processors::CCopy().Process(&from, &to);
    };
    CFrame scratch;
    scratch.Init(job.source.m_nWidth, job.source.m_nHeight, job.source.m_nDepth, &job.allocator,
                 PixelFormatARGB32f, job.source.m_bFlipped);
    move(job.source, scratch);
    ReduceFloat(scratch, set);
    move(scratch, job.destination);
}

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
            PaintFloat(job, set);
            return true;
        default:
            return true;  // no colour work for other layouts
    }
}

}  // namespace brushworks
