// Water Color on the processor: colours, a median as wide as the brush, sharpened patches, mix.
#include "effects/water_color/water_color.h"

#include <algorithm>

#include "frames/truncate.h"
#include "library/working_frames.h"
#include "processors/canvaskit/median.h"
#include "processors/canvaskit/sharpen.h"
#include "processors/color_twist.h"
#include "processors/mix.h"

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

/// Pictures above this many lines, counted over both fields, go through the brush twice.
constexpr int kLinesOfOneStroke = 500;

/// What the controls ask for.
struct Settings {
    float hue;  ///< 0.35 to 0.65; 0.5 is neutral
    float color;
    float brightness;
    float contrast;
    float brush;  ///< 0 to 5
    float blend;

    explicit Settings(const Parameters& p)
        : hue((p.Slider(kColorShift) - 0.5f) * 0.3f + 0.5f),
          color(p.Slider(kColor)),
          brightness(p.Slider(kBrightness)),
          contrast(p.Slider(kContrast)),
          brush(p.Slider(kBrushWidth) * 5.0f),
          blend(p.Slider(kBlend)) {}
};

/// Flattens the picture into patches of the brush's size, which is told for 240 lines.
bool PaintPatches(CFrame& frame, const Settings& set, bool isField) {
    const int fields = isField ? 2 : 1;
    const int radius = Truncate(static_cast<float>(frame.m_nHeight) / 240.0f *
                                static_cast<float>(fields) * (set.brush + 1.0f));
    if (radius < 1) return true;
    const int radiusY = isField ? std::max(radius >> 1, 1) : radius;
    Canvaskit::CMedian median;
    const bool twice = fields * frame.m_nHeight > kLinesOfOneStroke;
    return median.Process(frame, radius, radiusY) &&
           (!twice || median.Process(frame, radius, radiusY));
}

}  // namespace

bool CWaterColor::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    WorkingFrames work;
    if (!work.Open(job)) return false;

    Processors::CColorTwist().Process(&work.source, &work.destination, set.contrast, set.brightness,
                                      set.color, set.hue, job.allocator);
    if (!PaintPatches(work.destination, set, job.bFields)) return false;
    if (!Canvaskit::CSharpen().Process(work.destination)) return false;
    work.Finish(job);
    if (set.blend < 1.0f)
        Processors::CMix().Process(&job.source, &job.destination, &job.destination,
                                   1.0f - set.blend, set.blend);
    return true;
}

}  // namespace brushworks
