// Impressionist on the processor: strokes over a copy of the picture, rounded by a median; colours,
// mix.
#include <algorithm>
#include <new>

#include "effects/impressionist/impressionist.h"
#include "effects/impressionist/strokes.h"
#include "frames/aspect.h"
#include "frames/truncate.h"
#include "processors/canvaskit/median.h"
#include "processors/color_space_converter.h"
#include "processors/color_twist.h"
#include "processors/copy.h"
#include "processors/mix.h"
#include "processors/region.h"

namespace brushworks {
namespace {

enum Param : unsigned int {
    kColorShift,
    kColor,
    kBrightness,
    kContrast,
    kBrushSize,
    kBrushStroke,
    kBrushAngle,
    kSmoothing,
    kRandomSize,
    kRandomAngle,
    kLockVariations,
    kBlend,
};

/// What the controls ask for, read in this order.
struct Settings {
    float size;    ///< 0 to 0.5
    float stroke;  ///< 1 as thick as long, 0 as thin as can be
    float angle;   ///< radians
    bool randomSize;
    bool randomAngle;
    bool lockVariations;
    float mix;  ///< the source's weight
    float contrast;
    float brightness;
    float color;
    float shift;  ///< 0.35 to 0.65; 0.5 is neutral
    float smoothing;

    explicit Settings(const Parameters& p)
        : size(p.Slider(kBrushSize) * 0.5f),
          stroke(1.0f - p.Slider(kBrushStroke)),
          angle((1.0f - p.Slider(kBrushAngle)) * 6.2831855f),
          randomSize(p.IsOn(kRandomSize)),
          randomAngle(p.IsOn(kRandomAngle)),
          lockVariations(p.IsOn(kLockVariations)),
          mix(1.0f - p.Slider(kBlend)),
          contrast(p.Slider(kContrast)),
          brightness(p.Slider(kBrightness)),
          color(p.Slider(kColor)),
          shift((p.Slider(kColorShift) - 0.5f) * 0.3f + 0.5f),
          smoothing(p.Slider(kSmoothing)) {}

    /// Strokes follow the frame's height alone.
    Brush BrushFor(int height, float aspect) const {
        const auto lines = static_cast<float>(height);
        return {Truncate(size * lines * 0.25f * aspect),
                Truncate(aspect * size * stroke * lines * 0.25f),
                angle,
                randomAngle,
                randomSize,
                aspect};
    }

    /// Locked strokes are the same in all frames; the others are the same whenever a frame is
    /// rendered again.
    unsigned int SeedFor(const RenderInfo* info) const {
        constexpr unsigned int kLockedSeed = 10000;
        if (lockVariations) return kLockedSeed;
        return info ? static_cast<unsigned int>(info->nRandomSeed) : 0;
    }
};

/// The median knows bytes only; float frames take a way round through them.
void Median(CFrame& frame, int radiusX, int radiusY, MemoryAllocator& allocator) {
    Canvaskit::CMedian median;
    if (!Processors::IsFloatColor(frame)) {
        median.Process(frame, radiusX, radiusY);
        return;
    }
    CFrame bytes;
    if (!bytes.Init(frame.m_nWidth, frame.m_nHeight, 4, &allocator, PixelFormatBGRA8,
                    frame.m_bFlipped))
        return;
    Processors::CColorSpaceConverter converter;
    converter.Process(&frame, &bytes);
    median.Process(bytes, radiusX, radiusY);
    converter.Process(&bytes, &frame);
}

/// Rounds the strokes, by 5 pixels at most on 240 lines.
void Smooth(CFrame& frame, float smoothing, float aspect, MemoryAllocator& allocator) {
    if (!(smoothing * smoothing > 0.0f)) return;
    const auto lines = static_cast<float>(frame.m_nHeight);
    const int radius =
        std::max(Truncate(lines * smoothing * smoothing * 5.0f / 240.0f * aspect), 1);
    const int radiusY = std::max(Truncate(static_cast<float>(radius) / aspect), 1);
    // Only an aspect that no pixel has reaches beyond the frame's own size.
    const int most = frame.m_nWidth + frame.m_nHeight;
    Median(frame, std::min(radius, most), std::min(radiusY, most), allocator);
}

}  // namespace

bool CImpressionist::Paint(RenderJob& job) {
    if (!Processors::IsByteColor(job.source) && !Processors::IsFloatColor(job.source)) return false;
    const Settings set(job.parameters);
    AspectHelper aspect;
    aspect.Init(job.info, /*fieldsHalveHeight=*/true, /*keepAxis=*/false);

    Processors::CCopy().Process(&job.source, &job.destination);
    RandomSequence random(set.SeedFor(job.info));
    try {
        PaintStrokes(job.source, job.destination,
                     set.BrushFor(job.source.m_nHeight, aspect.fAspect), random, job.allocator);
    } catch (const std::bad_alloc&) {
        // The picture goes on without strokes.
    }
    Smooth(job.destination, set.smoothing, aspect.fAspect, job.allocator);
    Processors::CColorTwist().Process(&job.destination, &job.destination, set.contrast,
                                      set.brightness, set.color, set.shift, job.allocator);
    Processors::CMix().Process(&job.source, &job.destination, &job.destination, set.mix,
                               1.0f - set.mix);
    return true;
}

}  // namespace brushworks
