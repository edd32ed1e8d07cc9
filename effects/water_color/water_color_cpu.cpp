// Water Color on the processor: colours, a median as wide as the brush, sharpened patches, mix.
#include "effects/water_color/water_color.h"

#include "effects/blend_with_source.h"
#include "effects/patches.h"
#include "library/working_frames.h"
#include "processors/canvaskit/sharpen.h"
#include "processors/color_twist.h"

namespace brushworks {
namespace {

enum Param : unsigned int {
    kColorShift,
    kColor,
    kBrightness,
    kContrast,
    kBrushWidth,
    kBlend,
};

/// What the controls ask for.
struct Settings {
    float hue;  ///< 0.35 to 0.65; 0.5 is neutral
    float color;
    float brightness;
    float contrast;
    float brush;  ///< 1 to 6
    float blend;

    explicit Settings(const Parameters& p)
        : hue((p.Slider(kColorShift) - 0.5f) * 0.3f + 0.5f),
          color(p.Slider(kColor)),
          brightness(p.Slider(kBrightness)),
          contrast(p.Slider(kContrast)),
          brush(p.Slider(kBrushWidth) * 5.0f + 1.0f),
          blend(p.Slider(kBlend)) {}
};

}  // namespace

bool CWaterColor::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    WorkingFrames work;
    if (!work.Open(job)) return false;

    Processors::CColorTwist().Process(&work.source, &work.destination, set.contrast, set.brightness,
                                      set.color, set.hue, job.allocator);
    const BrushRadii brush(set.brush, work.source.m_nHeight, job.bFields);
    if (!SmoothPatches(work.destination, brush, job.bFields)) return false;
    if (!Canvaskit::CSharpen().Process(work.destination)) return false;
    work.Finish(job);
    BlendWithSource(job, set.blend);
    return true;
}

}  // namespace brushworks
