#include "effects/mosaic/point_grid.h"

#include <algorithm>

#include "frames/truncate.h"
#include "library/random_sequence.h"

namespace brushworks {
namespace {

constexpr unsigned int kSeed = 10;
constexpr float kLeastSize = 0.02f;
constexpr float kLeastCellWidth = 2.0f, kLeastCellHeight = 3.0f;  // pixels
constexpr float kHeightToWidth = 1.7f;                            // of a cell

/// NaN is raised, too.
float AtLeast(float least, float value) {
    return value > least ? value : least;
}

/// How far a cell's point may be shaken; a big jitter leaves it little room.
int JitterRange(float cell, float jitter) {
    return std::max(Truncate(cell / (jitter * 6.0f + 1.0f)), 1);
}

/// A pixel aspect beyond all sense asks for any number of rows, though those that start behind the
/// last line all lie on it. The smallest bricks need 98 rows, however low the frame is.
int MostRows(int height) {
    return std::max(height, 100);
}

}  // namespace

PointGrid::PointGrid(IppiSize frame, float size, float jitterX, float jitterY, float aspect)
    : m_frame(frame) {
    const auto width = static_cast<float>(frame.width), height = static_cast<float>(frame.height);
    const float wanted =
        AtLeast(kLeastCellWidth, aspect * height * 0.3f * AtLeast(kLeastSize, size));
    m_nx = std::max(Truncate(width / wanted), 1);
    const float cellW = AtLeast(kLeastCellWidth, width / static_cast<float>(m_nx));
    const float row = cellW * kHeightToWidth;
    m_ny = std::clamp(Truncate(height / (row / aspect)), 1, MostRows(frame.height));
    const float cellH = AtLeast(kLeastCellHeight, height / static_cast<float>(m_ny));

    m_points.resize(Index(m_ny + 2, 0));
    Shake(cellW, cellH, JitterRange(cellW, jitterX), JitterRange(cellH, jitterY));
    UndoCrossings();
    ClampToFrame();
}

void PointGrid::Shake(float cellW, float cellH, int rangeX, int rangeY) {
    RandomSequence random(kSeed);
    for (int r = 0; r <= m_ny + 1; ++r)
        for (int c = 0; c <= m_nx; ++c) {
            const float sign = (c + r) % 2 == 0 ? -1.0f : 1.0f;
            const int a = random.Next(), b = random.Next();  // drawn even where they are dropped
            const bool onRim = c == 0 || c == m_nx || r == 0 || r == m_ny + 1;
            const int ox = onRim ? 0 : Truncate(static_cast<float>(rangeX - a % rangeX) * 0.85f);
            const int oy = Truncate(static_cast<float>(b % rangeY) * sign * 0.73f);
            const int x = Truncate(static_cast<float>(c) * cellW + static_cast<float>(ox));
            const int y =
                Truncate(static_cast<float>(oy) + cellH * static_cast<float>(r) + cellH * -0.5f);
            const int right = m_frame.width - 1, bottom = m_frame.height - 1;
            m_points[Index(r, c)] = {c == 0      ? 0
                                     : c == m_nx ? right
                                                 : std::clamp(x, 0, right),
                                     r == 0          ? 0
                                     : r == m_ny + 1 ? bottom
                                                     : std::clamp(y, 0, bottom)};
        }
}

/// Points that passed each other step back to both sides of their middle. Each test sees what the
/// one before it moved.
void PointGrid::UndoCrossings() {
    for (int r = 0; r <= m_ny + 1; ++r)
        for (int c = 0; c < m_nx; ++c) {
            IppiPoint& p = m_points[Index(r, c)];
            IppiPoint& next = m_points[Index(r, c + 1)];
            if (r >= 1 && next.x < p.x) {
                const int middle = (p.x + next.x) >> 1;
                p.x = middle - 1;
                next.x = middle + 1;
            }
            if (r > m_ny) continue;
            IppiPoint& below = m_points[Index(r + 1, c)];
            if (below.y < p.y || below.y == p.y + 1) {
                const int middle = (p.y + below.y) >> 1;
                p.y = middle - 1;
                below.y = middle + 1;
                p.x = below.x = (p.x + below.x) >> 1;
            }
        }
}

void PointGrid::ClampToFrame() {
    for (IppiPoint& p : m_points) {
        p.x = std::clamp(p.x, 0, m_frame.width - 1);
        p.y = std::clamp(p.y, 0, m_frame.height - 1);
    }
}

}  // namespace brushworks
