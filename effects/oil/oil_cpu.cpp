// Oil on the processor: daubs as wide as the brush, colours, a median that smoothes them, mix.
#include "effects/oil/oil.h"

#include "effects/blend_with_source.h"
#include "effects/patches.h"
#include "library/working_frames.h"
#include "primitives/mode_filter.h"
#include "processors/canvaskit/fill_border.h"
#include "processors/canvaskit/hsv.h"
#include "processors/region.h"

namespace brushworks {
namespace {

enum Param : unsigned int { kColorShift, kColor, kBrightness, kBrushSize, kSmoothing, kBlend };

/// What the controls ask for. The host is asked in this order.
struct Settings {
    float brush;  ///< 2 to 5
    float hue;    ///< factors from 0.5 to 1.5; 1.0 is neutral
    float saturation;
    float value;
    float smoothing;  ///< 1 to 2
    float blend;

    explicit Settings(const Parameters& p)
        : brush(p.Slider(kBrushSize) * 3.0f + 2.0f),
          hue(p.Slider(kColorShift) + 0.5f),
          saturation(p.Slider(kColor) + 0.5f),
          value(p.Slider(kBrightness) + 0.5f),
          smoothing(p.Slider(kSmoothing) + 1.0f),
          blend(p.Slider(kBlend)) {}
};

/// Lays on the daubs: every pixel takes the most common colour around it.
bool PaintDaubs(CFrame& src, CFrame& dst, BrushRadii brush) {
    CFrame bordered;
    Canvaskit::CFillBorder().Process(src, bordered, brush.x, brush.y, nullptr);
    return ModeFilter_8u_C4R(bordered.m_pBuffer, bordered.m_nByteSpan, dst.m_pBuffer,
                             dst.m_nByteSpan, Processors::SizeOf(dst),
                             {2 * brush.x + 1, 2 * brush.y + 1}) == kStatusOk;
}

}  // namespace

bool COilPaint::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    WorkingFrames work;
    if (!work.Open(job)) return false;

    const int lines = work.destination.m_nHeight;
    if (!PaintDaubs(work.source, work.destination, BrushRadii(set.brush, lines, job.bFields)))
        return false;
    if (!Canvaskit::CHSV().Process(work.destination, work.destination, set.hue, set.saturation,
                                   set.value))
        return false;
    if (!SmoothPatches(work.destination, BrushRadii(set.smoothing, lines, job.bFields),
                       job.bFields))
        return false;
    work.Finish(job);
    BlendWithSource(job, set.blend);
    return true;
}

}  // namespace brushworks
