#include "effects/impressionist/stroke_line.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "frames/fast_math.h"
#include "frames/truncate.h"

namespace brushworks {
namespace {

constexpr double kMost = RandomSequence::kMax;

/// From 0 up to `limit` itself.
std::int32_t RandomPlace(RandomSequence& random, int limit) {
    return static_cast<std::int32_t>(random.Next() / kMost * limit);
}

float RandomAngle(RandomSequence& random) {
    return static_cast<float>(random.Next() / (kMost + 1.0)) * 6.2831855f;
}

int RandomLength(RandomSequence& random, int length) {
    const double drawn = 2.0 * length * (random.Next() / kMost);
    random.Next();  // goes unused, but decides which strokes come next
    return static_cast<int>(std::clamp(drawn, double{INT32_MIN}, double{INT32_MAX}));
}

/// Pixels across the main axis, never less than one pixel is wide.
float WidthOf(const StrokeLine& line, const Brush& brush) {
    const Spread spread(line, brush.aspect);
    const auto dx = static_cast<double>(spread.dx), dy = static_cast<double>(spread.dy);
    const float distance = LFMath::FastSqrt(static_cast<float>(dx * dx + dy * dy));
    const auto along = static_cast<float>(std::max(spread.dx, spread.dy));
    const float share = distance < 0.001f ? 0.0f : along / distance;
    const float across = share * static_cast<float>(brush.thickness);
    const int width = Truncate(spread.IsSteep() ? across : across / brush.aspect);
    return std::max(brush.aspect, static_cast<float>(width));
}

}  // namespace

Spread::Spread(const StrokeLine& line, float aspect)
    : dx(std::abs(std::int64_t{line.x2} - line.x1)),
      dy(Truncate(std::abs(static_cast<float>(std::int64_t{line.y2} - line.y1) * aspect))) {}

StrokeLine GetRandomLine(RandomSequence& random, int width, int height, const Brush& brush) {
    StrokeLine line{};
    line.x1 = RandomPlace(random, width);
    line.y1 = RandomPlace(random, height);
    const float angle = brush.randomAngle ? RandomAngle(random) : brush.angle;
    const auto length =
        static_cast<float>(brush.randomSize ? RandomLength(random, brush.length) : brush.length);
    line.x2 = Truncate(static_cast<float>(line.x1) + LFMath::FastCos(angle) * length);
    line.y2 =
        Truncate(static_cast<float>(line.y1) + LFMath::FastSin(angle) * length / brush.aspect);
    line.width = WidthOf(line, brush);
    return line;
}

}  // namespace brushworks
