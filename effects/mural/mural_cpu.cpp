// Mural on the processor: colours, edge-preserving smoothing, a wide unsharp mask, mix. All in the
// host's own layout.
#include "effects/mural/mural.h"

#include "effects/detail_enhancer.h"
#include "processors/color_twist.h"
#include "processors/mix.h"
#include "processors/smooth.h"

namespace brushworks {
namespace {

enum Param : unsigned int { kColor, kBrightness, kContrast, kSmoothing, kShading, kBlend };

constexpr float kNeutralHue = 0.5f;

/// What the controls ask for.
struct Settings {
    float color;
    float brightness;
    float contrast;
    float smooth;
    float shade;  ///< a hair above the slider: some shading always comes back
    float blend;  ///< likewise

    explicit Settings(const Parameters& p)
        : color(p.Slider(kColor)),
          brightness(p.Slider(kBrightness)),
          contrast(p.Slider(kContrast)),
          smooth(p.Slider(kSmoothing)),
          shade(p.Slider(kShading) + 0.01f),
          blend(p.Slider(kBlend) + 0.01f) {}
};

void Flatten(CFrame& from, CFrame& to, float smooth, bool field) {
    constexpr float kSpatial = 1.5f, kNoTone = 0.0f;
    const float range = smooth * 0.5f + 0.1f;
    const float radius = smooth * smooth * 1.5f * 0.4f + 0.2f;
    Processors::CSmooth().Process(&from, &to, nullptr, nullptr, kSpatial, range, radius, kNoTone,
                                  field, nullptr, nullptr);
}

}  // namespace

bool CSmoother::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    CFrame& source = job.source;
    CFrame& destination = job.destination;
    CFrame flat;
    flat.Init(source.m_nWidth, source.m_nHeight, source.m_nDepth, &job.allocator,
              source.m_pfPixelFormat, source.m_bFlipped);

    Processors::CColorTwist().Process(&source, &destination, set.contrast, set.brightness,
                                      set.color, kNeutralHue, job.allocator);
    Flatten(destination, flat, set.smooth, job.bFields);
    DetailEnchancer(&flat, &destination, set.shade, set.shade, job.bFields, &job.allocator);
    Processors::CMix().Process(&source, &destination, &destination, 1.0f - set.blend, set.blend);
    return true;
}

}  // namespace brushworks
