// Mosaic's pattern as numbers: shaken points, and the lines between them that make a wall of
// bricks.
#pragma once

#include <vector>

#include "primitives/types.h"

namespace brushworks {

/// ny + 2 rows of nx + 1 points, all of them inside the frame. The same arguments give the same
/// points, so that the pattern stands still while the picture moves.
class PointGrid {
  public:
    PointGrid(IppiSize frame, float size, float jitterX, float jitterY, float aspect);

    IppiSize frame() const { return m_frame; }
    int nx() const { return m_nx; }
    int ny() const { return m_ny; }
    /// Rows 0 to ny + 1, columns 0 to nx.
    IppiPoint At(int r, int c) const { return m_points[Index(r, c)]; }

    /// draw(from, to) for the lines around the bricks, row by row. Bricks span two columns, and
    /// each course is offset by one.
    template <class Draw>
    void ForEachLine(Draw draw) const {
        for (int r = 0; r <= m_ny + 1; ++r)
            for (int c = 0; c < m_nx; ++c) {
                if (r >= 1 && r <= m_ny) draw(At(r, c), At(r, c + 1));
                if (r <= m_ny && c > 0 && (c + r) % 2 != 0) draw(At(r, c), At(r + 1, c));
            }
    }

  private:
    std::size_t Index(int r, int c) const {
        return static_cast<std::size_t>(r) * (static_cast<std::size_t>(m_nx) + 1) + c;
    }
    void Shake(float cellW, float cellH, int rangeX, int rangeY);
    void UndoCrossings();
    void ClampToFrame();

    IppiSize m_frame;
    int m_nx, m_ny;
    std::vector<IppiPoint> m_points;
};

}  // namespace brushworks
