#include "effects/patches.h"

#include <algorithm>

#include "frames/truncate.h"
#include "processors/canvaskit/median.h"

namespace brushworks {
namespace {

constexpr int kLinesOfOnePass = 500;

int FieldsOf(bool isField) {
    return isField ? 2 : 1;
}

}  // namespace

BrushRadii::BrushRadii(float size, int lines, bool isField)
    : x(Truncate(static_cast<float>(lines) / 240.0f * static_cast<float>(FieldsOf(isField)) *
                 size)),
      y(std::max(isField ? x >> 1 : x, 1)) {}

bool SmoothPatches(CFrame& frame, BrushRadii brush, bool isField) {
    if (brush.x < 1) return true;
    Canvaskit::CMedian median;
    const bool twice = FieldsOf(isField) * frame.m_nHeight > kLinesOfOnePass;
    return median.Process(frame, brush.x, brush.y) &&
           (!twice || median.Process(frame, brush.x, brush.y));
}

}  // namespace brushworks
