// Toonery Plus on the processor: paint, lines over it, broad local contrast, mix.
#include "effects/blend_with_source.h"
#include "effects/cartoon/cartoon.h"
#include "effects/cartoon/line_layer.h"
#include "effects/cartoon/paint_layer.h"
#include "effects/detail_enhancer.h"
#include "library/working_frames.h"
#include "processors/set_color.h"

namespace brushworks {
namespace {

enum Param : unsigned int {
    kDensity = 1,
    kCleanUp,
    kWidth,
    kMix,
    kLayers = 7,
    kSmooth,
    kSharpen,
    kShading,
    kColorShift,
    kColor,
    kBrightness,
    kContrast,
    kBlend,
};

/// The dark half of the slider acts at three tenths of its strength.
float SoftenDarkness(float brightness) {
    return brightness < 0.5f ? (0.5f - brightness) * -0.3f + 0.5f : brightness;
}

float LayersOf(float slider) {
    return slider * slider * 3.0f;
}

/// What the controls ask for.
struct Settings {
    float density;
    float width;
    float mix;
    float layers;  ///< 0 to 3
    float smooth;
    float shift;
    float color;
    float sharpen;
    float brightness;
    float contrast;
    float blend;
    float cleanUp;
    float shading;

    explicit Settings(const Parameters& p)
        : density(p.Slider(kDensity)),
          width(p.Slider(kWidth)),
          mix(p.Slider(kMix)),
          layers(LayersOf(p.Slider(kLayers))),
          smooth(p.Slider(kSmooth)),
          shift(p.Slider(kColorShift)),
          color(p.Slider(kColor)),
          sharpen(p.Slider(kSharpen)),
          brightness(SoftenDarkness(p.Slider(kBrightness))),
          contrast(p.Slider(kContrast)),
          blend(p.Slider(kBlend)),
          cleanUp(p.Slider(kCleanUp) * 0.85f),
          shading(p.Slider(kShading)) {}

    PaintSettings Paint() const {
        constexpr float kFlatLayers = 1.0f;
        return {kFlatLayers, layers, smooth, shift, color, sharpen, contrast, brightness};
    }
    LineSettings Lines() const { return {cleanUp, density, width}; }
};

/// Nobody reads the mark, but hosts of PixelFormatBGRA8 find it in their source's first alpha.
void MarkFirstPixel(CFrame& source) {
    source.m_pBuffer[3] = 127;
}

void DrawLines(RenderJob& job, WorkingFrames& work, const Settings& set) {
    CFrame lines;
    if (!lines.Init(work.destination.m_nWidth, work.destination.m_nHeight, 1, &job.allocator,
                    PixelFormatMono8, false))
        return;
    Processors::CSetColor().Process(&lines, 0);  // for want of memory they may stay undrawn
    SmoothLine(&work.source, &lines, set.Lines(), job.bFields, &job.allocator);
    MergeLines(&work.destination, &lines, set.mix);
}

}  // namespace

bool CCartoonPro::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    WorkingFrames work;
    if (!work.Open(job)) return true;

    MarkFirstPixel(work.source);
    // Scratch may stay unpainted for want of memory.
    if (work.destination.m_bLocalAlloc) Processors::CSetColor().Process(&work.destination, 0);
    Clasterize(work.source, work.destination, set.Paint(), job.bFields);
    DrawLines(job, work, set);
    DetailEnchancer(&work.destination, &work.destination, set.shading + set.shading,
                    set.shading + 0.01f, /*field=*/false, &job.allocator);
    work.Finish(job);
    BlendWithSource(job, set.blend);
    return true;
}

}  // namespace brushworks
