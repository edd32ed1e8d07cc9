#include "effects/paper_collage/gamma_table.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "frames/truncate.h"

namespace brushworks {
namespace {

using Staircase = std::array<unsigned char, 256>;

void SpaceLevels(int count, float gamma, unsigned char* levels) {
    const float power = gamma >= 0.5f ? (gamma - 0.5f) * 5.0f + 1.0f : gamma * 1.2f + 0.4f;
    for (int i = 0; i < count; ++i) {
        const int even = 255 * i / (count - 1);
        const bool isEnd = i == 0 || i == count - 1;
        const float bent = 255.0f * std::pow(static_cast<float>(even) / 255.0f, 1.0f / power);
        levels[i] = static_cast<unsigned char>(isEnd ? even : std::min(Truncate(bent), 255));
    }
}

/// Steps of equal width. The last one takes what the rounding of the width leaves over.
Staircase MakeStaircase(int count, const unsigned char* levels) {
    Staircase stairs;
    stairs.fill(levels[count - 1]);
    const float width = 255.0f / static_cast<float>(count);
    for (int i = 0; i < count - 1; ++i)
        std::fill(stairs.begin() + Truncate(static_cast<float>(i) * width),
                  stairs.begin() + Truncate(static_cast<float>(i + 1) * width), levels[i]);
    return stairs;
}

}  // namespace

void CreateGammaTable(float fBalance, int nLevels, bool, float fGamma, unsigned char* pTable,
                      unsigned char* pLevels) {
    SpaceLevels(nLevels, fGamma, pLevels);
    const Staircase stairs = MakeStaircase(nLevels, pLevels);
    // Each half of the staircase is stretched or squeezed to its side of `middle`, which lies
    // between 12 and 242.
    const int middle = Truncate((fBalance * 0.9f + 0.05f) * 255.0f);
    for (int i = 0; i < middle; ++i) pTable[i] = stairs[127 * i / middle];
    for (int i = 255; i >= middle; --i) pTable[i] = stairs[255 - 127 * (255 - i) / (255 - middle)];
}

}  // namespace brushworks
