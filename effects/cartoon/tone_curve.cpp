#include "effects/cartoon/tone_curve.h"

#include <cmath>

#include "effects/tone_table.h"
#include "frames/truncate.h"

namespace brushworks {
namespace {

ToneTable CurveOf(float contrast, float offset, float power) {
    ToneTable curve;
    const double gamma = std::pow(double{power}, 2.0 * double{offset} - 1.0);
    for (int i = 0; i < 256; ++i) {
        const auto t = static_cast<float>(std::pow(i * 0.00390625, gamma));
        const float s = std::sin(t * 3.1415927f - 1.5707964f);
        const float level = (s + 1.0f) * 0.5f * contrast + t * (1.0f - contrast);
        curve[static_cast<std::size_t>(i)] = static_cast<unsigned char>(Truncate(level * 256.0f));
    }
    return curve;
}

ToneTable Twice(const ToneTable& curve) {
    ToneTable twice;
    for (std::size_t i = 0; i < twice.size(); ++i) twice[i] = curve[curve[i]];
    return twice;
}

}  // namespace

bool Contrast(CFrame* source, CFrame* destination, float contrast, float offset, float power) {
    return source && destination &&
           LookUp(*source, *destination, Twice(CurveOf(contrast, offset, power)));
}

}  // namespace brushworks
