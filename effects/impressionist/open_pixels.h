// Which pixels of a frame no stroke has reached yet, when strokes are taken from the last to the
// first: what a later stroke covers hides all earlier ones, so each pixel is painted once.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

#include "effects/impressionist/stroke_walk.h"

namespace brushworks {

/// A bit for each pixel, twice: as lines of columns and as lines of rows, so that a run of either
/// kind lies in one or two words.
class OpenPixels {
  public:
    OpenPixels(int width, int height)
        : m_columns(width, height),
          m_rows(height, width),
          m_count(static_cast<std::int64_t>(width) * height) {}

    /// How many pixels are left.
    std::int64_t Count() const { return m_count; }

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
            std::uint64_t open = lines.Word(run.at, word) & Mask(run, word);
            lines.Word(run.at, word) &= ~open;
            for (; open; open &= open - 1, --m_count) {
                const int place = word * kBits + std::countr_zero(open);
                crossing.Word(place, run.at / kBits) &= ~(std::uint64_t{1} << run.at % kBits);
                paint(place);
            }
        }
    }

  private:
    static constexpr int kBits = 64;

    /// The bits of a run in one of the words that it reaches into.
    static std::uint64_t Mask(Run run, int word) {
        const int first = std::max(run.begin - word * kBits, 0);
        const int behind = std::max((word + 1) * kBits - run.end, 0);
        return (~std::uint64_t{0} << first) & (~std::uint64_t{0} >> behind);
    }

    class Lines {
      public:
        Lines(int count, int pixels)
            : m_words((pixels + kBits - 1) / kBits),
              m_bits(static_cast<std::size_t>(count) * m_words, ~std::uint64_t{0}) {}
        std::uint64_t& Word(int line, int word) {
            return m_bits[static_cast<std::size_t>(line) * m_words + word];
        }
        std::uint64_t Word(int line, int word) const {
            return m_bits[static_cast<std::size_t>(line) * m_words + word];
        }

      private:
        std::size_t m_words;
        std::vector<std::uint64_t> m_bits;
    };

    Lines m_columns;
    Lines m_rows;
    std::int64_t m_count;
};

}  // namespace brushworks
