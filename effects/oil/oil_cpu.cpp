// Oil on the processor: daubs as wide as the brush, colours, a median that smoothes them, mix.
#include "effects/oil/oil.h"

#include <algorithm>

#include "frames/truncate.h"
#include "library/working_frames.h"
#include "primitives/mode_filter.h"
#include "processors/canvaskit/fill_border.h"
#include "processors/canvaskit/hsv.h"
#include "processors/canvaskit/median.h"
#include "processors/mix.h"
#include "processors/region.h"

namespace brushworks {
namespace {

enum Param : unsigned int { kColorShift, kColor, kBrightness, kBrushSize, kSmoothing, kBlend };

/// Pictures above this many lines, counted over both fields, are smoothed twice.
constexpr int kLinesOfOneSmoothing = 500;

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

/// Brush sizes are told for 240 lines. A field has half of a picture's lines, so that what reaches
/// as far along its rows spans half as many of them.
struct Radii {
    int x, y;

    Radii(float size, int lines, bool isField)
        : x(Truncate(static_cast<float>(lines) / 240.0f * (isField ? 2.0f : 1.0f) * size)),
          y(std::max(isField ? x >> 1 : x, 1)) {}
};

/// Lays on the daubs: every pixel takes the most common colour around it.
bool PaintDaubs(CFrame& src, CFrame& dst, Radii radii) {
    CFrame bordered;
    Canvaskit::CFillBorder().Process(src, bordered, radii.x, radii.y, nullptr);
    return ModeFilter_8u_C4R(bordered.m_pBuffer, bordered.m_nByteSpan, dst.m_pBuffer,
                             dst.m_nByteSpan, Processors::SizeOf(dst),
                             {2 * radii.x + 1, 2 * radii.y + 1}) == kStatusOk;
}

/// Smoothes the lines between the daubs.
bool Smooth(CFrame& frame, Radii radii, bool twice) {
    if (radii.x < 1) return true;
    Canvaskit::CMedian median;
    return median.Process(frame, radii.x, radii.y) &&
           (!twice || median.Process(frame, radii.x, radii.y));
}

}  // namespace

bool COilPaint::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    WorkingFrames work;
    if (!work.Open(job)) return false;

    const int lines = work.destination.m_nHeight;
    const bool twice = (job.bFields ? 2 : 1) * lines > kLinesOfOneSmoothing;
    if (!PaintDaubs(work.source, work.destination, Radii(set.brush, lines, job.bFields)))
        return false;
    if (!Canvaskit::CHSV().Process(work.destination, work.destination, set.hue, set.saturation,
                                   set.value))
        return false;
    if (!Smooth(work.destination, Radii(set.smoothing, lines, job.bFields), twice)) return false;
    work.Finish(job);
    if (set.blend < 1.0f)
        Processors::CMix().Process(&job.source, &job.destination, &job.destination,
                                   1.0f - set.blend, set.blend);
    return true;
}

}  // namespace brushworks
