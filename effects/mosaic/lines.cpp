#include "effects/mosaic/lines.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "frames/truncate.h"
#include "processors/region.h"

namespace brushworks {
namespace {

/// Where the channels of a pixel lie.
struct Places {
    int red, green, blue, alpha;

    explicit Places(const CFrame& frame) {
        const bool alphaFirst = Processors::AlphaPlane(frame) == 0;
        red = alphaFirst ? 1 : 2;
        green = alphaFirst ? 2 : 1;
        blue = alphaFirst ? 3 : 0;
        alpha = alphaFirst ? 0 : 3;
    }
};

bool IsInside(const CFrame& frame, int x, int y) {
    return x >= 0 && x < frame.m_nWidth && y >= 0 && y < frame.m_nHeight;
}

unsigned char* PixelAt(const CFrame& frame, int x, int y) {
    return Processors::RowOf<unsigned char>(frame, y) + std::ptrdiff_t{4} * x;
}

int PixelsOfLine(int x1, int y1, int x2, int y2) {
    return std::max(std::abs(x2 - x1), std::abs(y2 - y1)) + 1;
}

/// visit(x, y) for each pixel of a line. With n the longer of its two extents and k the other, step
/// i lies i along the longer axis and i * k / n, an integer division, along the other; here the
/// quotient advances by its remainder.
template <class Visit>
void WalkLine(int x1, int y1, int x2, int y2, Visit visit) {
    const int dx = std::abs(x2 - x1), dy = std::abs(y2 - y1);
    const int n = std::max(dx, dy), k = std::min(dx, dy);
    const int stepX = x2 < x1 ? -1 : 1, stepY = y2 < y1 ? -1 : 1;
    int x = x1, y = y1, remainder = 0;
    for (int i = 0; i <= n; ++i) {
        visit(x, y);
        remainder += k;
        const bool turns = remainder >= n;
        if (turns) remainder -= n;
        if (turns || dx == n) x += stepX;
        if (turns || dy == n) y += stepY;
    }
}

}  // namespace

void DrawLine(CFrame* frame, int x1, int y1, int x2, int y2, unsigned int color) {
    const Places at(*frame);
    const int right = frame->m_nWidth - 1, bottom = frame->m_nHeight - 1;
    WalkLine(x1, y1, x2, y2, [&](int x, int y) {
        unsigned char* pixel = PixelAt(*frame, std::clamp(x, 0, right), std::clamp(y, 0, bottom));
        pixel[at.red] = static_cast<unsigned char>(color);
        pixel[at.green] = static_cast<unsigned char>(color >> 8);
        pixel[at.blue] = static_cast<unsigned char>(color >> 16);
        pixel[at.alpha] = static_cast<unsigned char>(color >> 24);
    });
}

unsigned int GetAverageLineColor8u(const CFrame* frame, int x1, int y1, int x2, int y2) {
    if (!IsInside(*frame, x1, y1) || !IsInside(*frame, x2, y2)) return 0;
    const Places at(*frame);
    unsigned int red = 0, green = 0, blue = 0;
    WalkLine(x1, y1, x2, y2, [&](int x, int y) {
        const unsigned char* pixel = PixelAt(*frame, x, y);
        red += pixel[at.red];
        green += pixel[at.green];
        blue += pixel[at.blue];
    });
    const auto count = static_cast<float>(PixelsOfLine(x1, y1, x2, y2));
    const auto mean = [count](unsigned int sum) {
        return static_cast<unsigned int>(static_cast<float>(sum) / count);
    };
    return mean(red) | mean(green) << 8 | mean(blue) << 16;
}

void Drawwuline(CFrame* frame, double x1, double y1, double x2, double y2, unsigned int color) {
    const double dx = x2 - x1, dy = y2 - y1;
    if (dx == 0.0 && dy == 0.0) return;
    // Along the axis of the greater extent the coordinate is called main, along the other minor.
    const bool mainIsY = std::abs(dx) <= std::abs(dy);
    double main1 = mainIsY ? y1 : x1, minor1 = mainIsY ? x1 : y1;
    double main2 = mainIsY ? y2 : x2, minor2 = mainIsY ? x2 : y2;
    if (main2 < main1) {
        std::swap(main1, main2);
        std::swap(minor1, minor2);
    }
    const double gradient = (minor2 - minor1) / (main2 - main1);

    // The two pixels that a line passes between share a weight. As a multiplier of what lies there
    // the nearer one's turns it darker.
    const auto drawPair = [&](int main, double minor, double share) {
        const double floor = std::floor(minor), fraction = minor - floor;
        const int low = static_cast<int>(floor);
        const auto draw = [&](int at, double weight) {
            DrawPixel(frame, mainIsY ? at : main, mainIsY ? main : at, static_cast<float>(weight),
                      color);
        };
        draw(low, fraction * share);
        draw(low + 1, (1.0 - fraction) * share);
    };
    const double end1 = std::floor(main1 + 0.5), end2 = std::floor(main2 + 0.5);
    const double value1 = minor1 + gradient * (end1 - main1);
    const double value2 = minor2 + gradient * (end2 - main2);
    const int first = static_cast<int>(end1), last = static_cast<int>(end2);
    drawPair(first, value1, 1.0 - ((main1 + 0.5) - end1));
    drawPair(last, value2, 1.0 - ((main2 - 0.5) - std::floor(main2 - 0.5)));
    double minor = value1;
    for (int main = first + 1; main < last; ++main) drawPair(main, minor += gradient, 1.0);
}

void DrawPixel(CFrame* frame, int x, int y, float weight, unsigned int) {
    if (!IsInside(*frame, x, y)) return;
    const int scale = Truncate(weight * 255.0f) & 255;
    unsigned char* pixel = PixelAt(*frame, x, y);
    const int colors = Processors::AlphaPlane(*frame) == 0 ? 1 : 0;
    for (int i = colors; i < colors + 3; ++i)
        pixel[i] = static_cast<unsigned char>(pixel[i] * scale >> 8);
}

}  // namespace brushworks
