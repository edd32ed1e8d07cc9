// Mosaic's lines: drawn in one colour, averaged, and drawn softly in black. Frames hold bytes.
#pragma once

#include "frames/frame.h"

namespace brushworks {

// Colours have red in the low byte, then green, blue and alpha.

/// Writes all four bytes along an integer walk from end to end. Positions outside the frame draw on
/// its edge.
void DrawLine(CFrame* frame, int x1, int y1, int x2, int y2, unsigned int color);

/// The mean colour along the same walk, without alpha; 0 when an end lies outside the frame.
unsigned int GetAverageLineColor8u(const CFrame* frame, int x1, int y1, int x2, int y2);

/// Darkens a line with soft edges by Wu's weights. The colour plays no part.
void Drawwuline(CFrame* frame, double x1, double y1, double x2, double y2, unsigned int color);

/// Scales the colours of a pixel: 0 makes it black, 1 leaves about the same. Nothing outside the
/// frame; the colour plays no part.
void DrawPixel(CFrame* frame, int x, int y, float weight, unsigned int color);

}  // namespace brushworks
