// Pencil Rubbing on the processor: a turned relief kernel, colours. All in the host's own layout.
#include "effects/pencil_rubbing/pencil_rubbing.h"

#include <algorithm>
#include <cmath>

#include "processors/color_twist.h"
#include "processors/copy.h"
#include "processors/fill_border.h"
#include "processors/filter.h"
#include "processors/region.h"
#include "processors/set_color.h"

namespace brushworks {
namespace {

enum Param : unsigned int { kColorShift, kColor, kBrightness, kContrast, kAngle };

/// The places of the outer elements, in their order around the centre.
constexpr int kRing[] = {0, 1, 2, 5, 8, 7, 6, 3};
constexpr int kRingSteps = 8;

constexpr float kRelief[9] = {
    -4, -2, 4,   //
    -2, 10, -2,  //
    4,  -2, -4,
};

/// What the controls ask for.
struct Settings {
    float angle;  ///< in whole turns
    float contrast;
    float brightness;
    float color;
    float hue;  ///< 0.35 to 0.65; 0.5 is neutral

    explicit Settings(const Parameters& p)
        : angle(p.Slider(kAngle)),
          contrast(p.Slider(kContrast)),
          brightness(p.Slider(kBrightness)),
          color(p.Slider(kColor)),
          hue((p.Slider(kColorShift) - 0.5f) * 0.3f + 0.5f) {}
};

void Rub(RenderJob& job, float angle) {
    float kernel[9];
    std::copy(std::begin(kRelief), std::end(kRelief), kernel);
    CPencilRubbing::MatrixRotate(kernel, angle);

    CFrame& source = job.source;
    CFrame& destination = job.destination;
    CFrame wider;  // by a dark pixel on each side
    if (!wider.Init(source.m_nWidth + 2, source.m_nHeight + 2, source.m_nDepth, &job.allocator,
                    source.m_pfPixelFormat, source.m_bFlipped))
        return;
    Processors::CSetColor().Process(&wider, 0);
    Processors::CCopy().Process(&source, 0, 0, source.m_nWidth, source.m_nHeight, &wider, 1, 1);
    Processors::CFilter().Process(&wider, &destination, kernel, 3, true);
    Processors::CFillBorder().Process(&destination, &destination, 1, 1);
}

}  // namespace

void CPencilRubbing::MatrixRotate(float* kernel, float angle) {
    const float steps = angle * kRingSteps;
    const float whole = std::floor(steps);
    const float part = steps - whole;
    float old[9];
    std::copy(kernel, kernel + 9, old);
    for (int i = 0; i < kRingSteps; ++i) {
        const int from = (static_cast<int>(whole) + i) & (kRingSteps - 1);
        const int next = (from + 1) & (kRingSteps - 1);
        kernel[kRing[i]] = (1 - part) * old[kRing[from]] + part * old[kRing[next]];
    }
}

void CPencilRubbing::ClampImage(CFrame* frame, int width, int height) {
    for (int y = 0; y < height; ++y) {
        auto* samples = Processors::RowOf<float>(*frame, y);
        for (int i = 0; i < 4 * width; ++i)
            samples[i] = samples[i] > 0.0f ? std::min(samples[i], 1.0f) : 0.0f;
    }
}

bool CPencilRubbing::Paint(RenderJob& job) {
    const Settings set(job.parameters);
    CFrame& destination = job.destination;
    Rub(job, set.angle);
    if (Processors::IsFloatColor(job.source))
        ClampImage(&destination, destination.m_nWidth, destination.m_nHeight);
    Processors::CColorTwist().Process(&destination, &destination, set.contrast, set.brightness,
                                      set.color, set.hue, job.allocator);
    return true;
}

}  // namespace brushworks
