// The way along a stroke: a line walk with error terms that yields, for each pixel of the main
// axis, the run of pixels across it.
#pragma once

#include <cstdint>

#include "effects/impressionist/stroke_line.h"

namespace brushworks {

/// A stroke's terms. Steep strokes walk along y, and their runs lie in rows; the others walk along
/// x, and their runs lie in columns.
struct StrokeWalk {
    StrokeWalk(const StrokeLine& line, float aspect);

    bool isSteep;
    std::int64_t start, end;   ///< on the main axis, in rising order
    std::int32_t cross;        ///< the start's place on the other axis
    float step;                ///< how the cross axis moves
    std::int64_t err, e1, e2;  ///< while err is below 0 it grows by e1, else by e2 with a move
    float width;
};

/// The pixels `begin` up to, not including, `end` of the line `at` across the main axis.
struct Run {
    std::int32_t at;
    std::int32_t begin, end;
};

/// The runs of a walk within the frame, in their order, the empty ones left out. The line of the
/// start itself has none.
class Runs {
  public:
    /// `step` is the walk's own, or turned over for the mirror image; the limits are the frame's
    /// size along the main and the cross axis.
    Runs(const StrokeWalk& walk, float step, int mainLimit, int crossLimit);

    /// False after the last.
    bool Next(Run& run) {
        while (m_next <= m_last) {
            Advance();
            run = {static_cast<std::int32_t>(m_next++), m_begin, m_end};
            if (m_begin < m_end) return true;
        }
        return false;
    }

  private:
    void Advance() {
        if (m_err < 0) {
            m_err += m_walk.e1;
            return;
        }
        m_err += m_walk.e2;
        m_cross += m_step;
        PlaceRun();
    }
    /// As many advances at once, before the first run is placed.
    void Skip(std::int64_t advances);
    void PlaceRun();

    const StrokeWalk& m_walk;
    const float m_step;
    const int m_crossLimit;
    std::int64_t m_next, m_last;
    std::int64_t m_err;
    float m_cross;
    std::int32_t m_begin, m_end;
};

}  // namespace brushworks
