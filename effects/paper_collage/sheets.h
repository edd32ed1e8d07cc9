// Lays sheets of coloured paper over each other, each with a soft shadow on what lies beneath.
#pragma once

#include <span>

#include "effects/paper_collage/levels.h"
#include "frames/frame.h"
#include "frames/memory_allocator.h"

namespace brushworks {

/// The shadows that all sheets throw.
struct Shadow {
    bool isThrown;
    int dx, dy;           ///< to the right and down, in pixels
    std::uint32_t color;  ///< blue in the low byte, on the sheet that is laid first
    int keep;             ///< 0 to 255: how far the colour drifts to that of each sheet beneath
};

class Sheets {
  public:
    /// Takes the memory for pictures of that size. False where it cannot be had.
    bool Open(int width, int height, int levels, MemoryAllocator& allocator);

    /// Lays the sheets, darkest first. `values` is a plane with the value of each pixel's level;
    /// the sheet of a level covers the pixels of its own and of all brighter levels. `picture`, in
    /// bytes with alpha last, is written whole. Both have the size that was opened.
    void Lay(const CFrame& values, std::span<const Level> levels, Shadow shadow, CFrame& picture);

  private:
    void LowPassFilter();
    void BlendShadow(const CFrame& values, const Level& level, std::uint32_t color,
                     CFrame& picture);

    int m_margin = 0;
    CFrame m_masks[2];        ///< the shadow and its next state, with the margin on every side
    int m_current = 0;        ///< which of them is the shadow
    CFrame m_strip, m_alpha;  ///< some rows of shadow: its colour, and how dense it is
};

}  // namespace brushworks
