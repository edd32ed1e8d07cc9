// What Posterize's controls ask for, on either path.
#pragma once

#include "library/parameters.h"

namespace brushworks::posterize {

enum Param : unsigned int { kColorShift, kColor, kBrightness, kLevels, kDither };

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

}  // namespace brushworks::posterize
