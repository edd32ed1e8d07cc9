// The levels of a collage and the colours of their sheets.
//
// Colours are words of three bytes. Which byte holds red is the caller's business, but for the
// contrast, whose luminance weighs the lowest byte with 76 and the third with 30.
#pragma once

#include <cstdint>
#include <span>

#include "effects/paper_collage/gamma_table.h"

namespace brushworks {

/// One level, darkest first in a span of them.
struct Level {
    unsigned char value;  ///< brightness that stands for the level
    bool isFound;         ///< some pixel belongs to it
    std::uint32_t color;  ///< of its pixels on average, then of its sheet
};

/// The colours that sheets take beside those of the picture.
struct SheetColors {
    std::uint32_t foreground;  ///< of the brightest sheet
    std::uint32_t background;  ///< of the darkest
    int blend;                 ///< 0 to 255: how much of the picture's own colours stays
    float contrast;            ///< 0 to 1
};

/// Turns the average colours of the levels into those of their sheets.
void ColorSheets(std::span<Level> levels, const SheetColors& colors);

/// The shadow's colour on a sheet: it drifts from `shadow` to the sheet's by `keep` 255ths.
std::uint32_t DriftShadow(std::uint32_t shadow, std::uint32_t sheet, int keep);

}  // namespace brushworks
