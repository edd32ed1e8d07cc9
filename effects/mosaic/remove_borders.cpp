#include "effects/mosaic/remove_borders.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "processors/region.h"

namespace brushworks {
namespace {

constexpr int kBlock = 16;  // pixels that are looked at together

std::uint32_t Word(const unsigned char* pixel) {
    std::uint32_t word;
    std::memcpy(&word, pixel, sizeof word);
    return word;
}

/// A bit for each of kBlock pixels whose bytes are all 0.
std::uint32_t BlankPixels(const unsigned char* pixels) {
    std::uint32_t words[kBlock];
    std::memcpy(words, pixels, sizeof words);
    std::uint32_t blank = 0;
    for (int i = 0; i < kBlock; ++i) blank |= words[i] == 0 ? std::uint32_t{1} << i : 0;
    return blank;
}

/// The sum of up to four pixels, each pair of their bytes in halves of a word.
class Neighbours {
  public:
    void Add(std::uint32_t pixel) {
        if (pixel == 0) return;
        m_even += pixel & 0x00ff00ff;
        m_odd += pixel >> 8 & 0x00ff00ff;
        ++m_count;
    }

    /// The integer mean of each byte. 65536 / 3, rounded up, is exact for sums of three bytes.
    std::uint32_t Mean() const {
        constexpr std::uint32_t kParts[5] = {0, 65536, 32768, 21846, 16384};
        const std::uint32_t part = kParts[m_count];
        const auto mean = [part](std::uint32_t sum) { return sum * part >> 16; };
        return mean(m_even & 0xffff) | mean(m_odd & 0xffff) << 8 | mean(m_even >> 16) << 16 |
               mean(m_odd >> 16) << 24;
    }

  private:
    std::uint32_t m_even = 0, m_odd = 0;
    int m_count = 0;
};

class Repair {
  public:
    /// `colors` has all bits but alpha's, in memory order.
    Repair(CFrame& frame, std::uint32_t colors) : m_frame(frame), m_colors(colors) {}

    void Row(int y) const {
        auto* row = Processors::RowOf<unsigned char>(m_frame, y);
        const auto* above = Processors::RowOf<unsigned char>(m_frame, std::max(y - 1, 0));
        const auto* below =
            Processors::RowOf<unsigned char>(m_frame, std::min(y + 1, m_frame.m_nHeight - 1));
        int x = 0;
        for (; x <= m_frame.m_nWidth - kBlock; x += kBlock)
            // A repair changes its own pixel alone, so the bits of those behind it stay right.
            for (std::uint32_t left = BlankPixels(row + std::ptrdiff_t{4} * x); left != 0;
                 left &= left - 1)
                Pixel(row, above, below, x + std::countr_zero(left));
        for (; x < m_frame.m_nWidth; ++x)
            if (Word(row + std::ptrdiff_t{4} * x) == 0) Pixel(row, above, below, x);
    }

  private:
    /// At the frame's edges a pixel is its own neighbour, which is blank and does not count.
    void Pixel(unsigned char* row, const unsigned char* above, const unsigned char* below,
               int x) const {
        const std::ptrdiff_t at = std::ptrdiff_t{4} * x;
        Neighbours beside;
        beside.Add(Word(below + at));
        beside.Add(Word(above + at));
        beside.Add(Word(row + std::ptrdiff_t{4} * std::min(x + 1, m_frame.m_nWidth - 1)));
        beside.Add(Word(row + std::ptrdiff_t{4} * std::max(x - 1, 0)));
        const std::uint32_t repaired = beside.Mean() & m_colors;
        std::memcpy(row + at, &repaired, sizeof repaired);
    }

    CFrame& m_frame;
    std::uint32_t m_colors;
};

void RemoveBorders(CFrame& frame, std::uint32_t colors) {
    const Repair repair(frame, colors);
    for (int y = 0; y < frame.m_nHeight; ++y) repair.Row(y);
}

}  // namespace

void RemoveBordersBGRA8(CFrame* frame) {
    RemoveBorders(*frame, 0x00ffffff);
}

void RemoveBordersARGB8(CFrame* frame) {
    RemoveBorders(*frame, 0xffffff00);
}

}  // namespace brushworks
