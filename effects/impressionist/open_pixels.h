// Which pixels of a frame no stroke has reached yet, when strokes are taken from the last to the
// first: what a later stroke covers hides all earlier ones, so each pixel is painted once.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>

#include "effects/impressionist/scratch_array.h"
#include "effects/impressionist/stroke_walk.h"

namespace brushworks {

/// A bit for each pixel, twice: as lines of columns and as lines of rows, so that a run of either
/// kind lies in one or two words.
class OpenPixels {
  public:
    OpenPixels(int width, int height, MemoryAllocator& allocator)
        : m_columns(width, height, allocator),
          m_rows(height, width, allocator),
          m_tilesAcross(TilesOf(width)),
          m_tiles(static_cast<std::size_t>(m_tilesAcross) * TilesOf(height), 0, allocator),
          m_count(static_cast<std::int64_t>(width) * height) {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; x += kBits) TileAt(x, y) += std::min(kBits, width - x);
    }

    /// How many pixels are left.
    std::int64_t Count() const { return m_count; }

    /// False when all is closed in and around the box.
    bool HasAnyNear(bool isSteep, WalkBox box) const {
        if (box.mainBegin >= box.mainEnd || box.crossBegin >= box.crossEnd) return false;
        const int main = box.mainBegin / kBits, mainLast = (box.mainEnd - 1) / kBits;
        const int cross = box.crossBegin / kBits, crossLast = (box.crossEnd - 1) / kBits;
        return isSteep ? HasAnyTile(cross, crossLast, main, mainLast)
                       : HasAnyTile(main, mainLast, cross, crossLast);
    }

    bool HasAny(bool isSteep, Run run) const {
        const Lines& lines = isSteep ? m_rows : m_columns;
        bool any = false;
        for (int word = run.begin / kBits; word * kBits < run.end && !any; ++word)
            any = (lines.Word(run.at, word) & Mask(run, word)) != 0;
        return any;
    }

    /// Closes the run's open pixels and calls paint(place across the main axis) for each.
    template <class Paint>
    void Close(bool isSteep, Run run, Paint paint) {
        Lines& lines = isSteep ? m_rows : m_columns;
        Lines& crossing = isSteep ? m_columns : m_rows;
        for (int word = run.begin / kBits; word * kBits < run.end; ++word) {
            const std::uint64_t open = lines.Word(run.at, word) & Mask(run, word);
            if (!open) continue;
            lines.Word(run.at, word) &= ~open;
            int closed = 0;
            for (std::uint64_t left = open; left; left &= left - 1, ++closed) {
                const int place = word * kBits + std::countr_zero(left);
                crossing.Word(place, run.at / kBits) &= ~(std::uint64_t{1} << run.at % kBits);
                paint(place);
            }
            m_count -= closed;
            (isSteep ? TileAt(word * kBits, run.at) : TileAt(run.at, word * kBits)) -= closed;
        }
    }

  private:
    static constexpr int kBits = 64;

    static int TilesOf(int pixels) { return (pixels + kBits - 1) / kBits; }
    std::int32_t& TileAt(int x, int y) {
        return m_tiles[static_cast<std::size_t>(y / kBits) * m_tilesAcross + x / kBits];
    }
    bool HasAnyTile(int left, int right, int top, int bottom) const {
        for (int y = top; y <= bottom; ++y)
            for (int x = left; x <= right; ++x)
                if (m_tiles[static_cast<std::size_t>(y) * m_tilesAcross + x] > 0) return true;
        return false;
    }

    /// The bits of a run in one of the words that it reaches into.
    static std::uint64_t Mask(Run run, int word) {
        const int first = std::max(run.begin - word * kBits, 0);
        const int behind = std::max((word + 1) * kBits - run.end, 0);
        return (~std::uint64_t{0} << first) & (~std::uint64_t{0} >> behind);
    }

    class Lines {
      public:
        Lines(int count, int pixels, MemoryAllocator& allocator)
            : m_words(TilesOf(pixels)), m_bits(count * m_words, ~std::uint64_t{0}, allocator) {}
        std::uint64_t& Word(int line, int word) {
            return m_bits[static_cast<std::size_t>(line) * m_words + word];
        }
        std::uint64_t Word(int line, int word) const {
            return m_bits[static_cast<std::size_t>(line) * m_words + word];
        }

      private:
        std::size_t m_words;
        ScratchArray<std::uint64_t> m_bits;
    };

    Lines m_columns;
    Lines m_rows;
    int m_tilesAcross;
    ScratchArray<std::int32_t> m_tiles;  // open pixels in squares of kBits by kBits
    std::int64_t m_count;
};

}  // namespace brushworks
