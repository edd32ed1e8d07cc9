// What Charcoal's controls ask for, on either path.
#pragma once

#include <cmath>

#include "library/parameters.h"

namespace brushworks::charcoal {

enum Param : unsigned int { kDetails, kWidth, kContrast, kCharcoal, kSurface, kColor };

struct Settings {
    float width;             ///< of strokes, 0 to 2
    std::uint32_t charcoal;  ///< red in the low byte
    std::uint32_t surface;   ///< likewise
    float contrast;
    float coarse;  ///< how much detail is smoothed away
    float color;   ///< the picture's own share, 0 to 1

    explicit Settings(const Parameters& p)
        : width(2.0f * p.Slider(kWidth)),
          charcoal(p.Color(kCharcoal)),
          surface(p.Color(kSurface)),
          contrast(p.Slider(kContrast)),
          coarse(1.0f - p.Slider(kDetails)),
          color(p.Slider(kColor)) {}

    // How the gray picture is smoothed before its edges are looked for.
    static constexpr float kSpatial = 1.0f, kRadius = 0.11f, kNoTone = 0.0f;
    float Range() const { return coarse * 0.5f + 0.1f; }

    /// A stroke's spread follows the lines of the whole picture, `height` of which are here.
    float Sigma(int height, bool bFields) const {
        const float lines = static_cast<float>(height) / 240.0f;
        return (width + 0.01f) * std::sqrt(lines * (bFields ? 2.0f : 1.0f));
    }
};

}  // namespace brushworks::charcoal
