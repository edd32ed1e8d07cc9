#include "effects/impressionist/stroke_walk.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "frames/truncate.h"

namespace brushworks {
namespace {

/// `value` after `times` additions of `step`, each rounded: what a loop would give, in a few steps
/// for each power of two on the way. Between two powers of two all sums are rounded by the same
/// amount, but for ties, of which the first leads to an even number and the others all go alike.
float AddRepeatedly(float value, float step, std::int64_t times) {
    while (times > 0) {
        const float first = value + step, second = first + step, third = second + step;
        if (!(second < first) && !(second > first)) return first;  // has come to rest
        --times;
        value = first;
        const double stride = static_cast<double>(second) - first;
        const int exponent = std::ilogb(first);
        if (stride != static_cast<double>(third) - second || std::ilogb(second) != exponent ||
            std::ilogb(third) != exponent)
            continue;
        const bool grows = std::abs(second) > std::abs(first);
        const double edge = std::ldexp(1.0, grows ? exponent + 1 : exponent);
        const double room = std::abs(edge - std::abs(static_cast<double>(first)));
        const double most = std::min(room / std::abs(stride) - 2.0, static_cast<double>(times));
        if (most < 1.0) continue;
        const auto alike = static_cast<std::int64_t>(most);
        value = static_cast<float>(first + static_cast<double>(alike) * stride);
        times -= alike;
    }
    return value;
}

/// The smallest integer that is not below a value in the range of pixels.
std::int32_t Ceiling(float value) {
    const std::int32_t whole = Truncate(value);
    return static_cast<float>(whole) < value ? whole + 1 : whole;
}

/// The place on the way: error terms, and the cross axis in floats, whose rounding shows where
/// pixels are not square.
struct Place {
    std::int64_t err;
    float cross;

    void Advance(const StrokeWalk& walk, float step) {
        const bool moves = err >= 0;
        err += moves ? walk.e2 : walk.e1;
        cross += moves ? step : 0.0f;
    }

    /// As many advances at once.
    void Skip(const StrokeWalk& walk, float step, std::int64_t advances) {
        constexpr std::int64_t kAtOnce = 1 << 28;  // keeps the products within 64 bits
        const std::int64_t twiceAlong = walk.e1 - walk.e2;
        while (advances > 0) {
            // The error stays from e1 - twiceAlong up to e1: so many moves bring it back there.
            const std::int64_t part = std::min(advances, kAtOnce);
            const std::int64_t sum = err + part * walk.e1;
            const std::int64_t moves = (sum - walk.e1 + twiceAlong) / twiceAlong;
            err = sum - moves * twiceAlong;
            cross = AddRepeatedly(cross, step, moves);
            advances -= part;
        }
    }
};

}  // namespace

StrokeWalk::StrokeWalk(const StrokeLine& line, float aspect) : width(line.width) {
    const Spread spread(line, aspect);
    isSteep = spread.IsSteep();
    std::int32_t x1 = line.x1, y1 = line.y1, x2 = line.x2, y2 = line.y2;
    if (isSteep ? y2 < y1 : x2 < x1) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    start = isSteep ? y1 : x1;
    end = isSteep ? y2 : x2;
    cross = isSteep ? x1 : y1;
    const float move = isSteep ? 1.0f : 1.0f / aspect;
    step = (isSteep ? x1 < x2 : y1 < y2) ? move : -move;
    const std::int64_t along = std::max(spread.dx, spread.dy);
    const std::int64_t across = std::min(spread.dx, spread.dy);
    err = 2 * across - along;
    e1 = 2 * across;
    e2 = 2 * (across - along);
}

WalkBox BoxAround(const StrokeWalk& walk, WalkLimits limits) {
    const auto cut = [](float place, int limit) {
        return Truncate(std::clamp(place, 0.0f, static_cast<float>(limit)));
    };
    const auto steps = static_cast<float>(walk.end - walk.start);
    const auto cross = static_cast<float>(walk.cross);
    // One move for each e1 - e2 that the error grows. An addition is off by half a unit in the last
    // place at most, and never by more than a step.
    const float moves = steps * static_cast<float>(walk.e1) / static_cast<float>(walk.e1 - walk.e2);
    const float travel = moves * walk.step;
    const float slack =
        3.0f + std::abs(walk.step) + (std::abs(cross) + std::abs(travel)) * (moves + 4.0f) * 2e-7f;
    const float side = std::max(walk.width * 0.5f, 0.0f) + slack;
    return {static_cast<std::int32_t>(std::clamp<std::int64_t>(walk.start + 1, 0, limits.main)),
            static_cast<std::int32_t>(std::clamp<std::int64_t>(walk.end + 1, 0, limits.main)),
            cut(cross + std::min(travel, 0.0f) - side, limits.cross),
            cut(cross + std::max(travel, 0.0f) + side, limits.cross)};
}

Run* FindRuns(const StrokeWalk& walk, float step, WalkLimits limits, Run* runs) {
    const auto crossLimit = static_cast<float>(limits.cross);
    const std::int64_t first = std::max<std::int64_t>(walk.start + 1, 0);
    const std::int64_t last = std::min<std::int64_t>(walk.end, limits.main - 1);
    if (first > last) return runs;
    Place place{walk.err, static_cast<float>(walk.cross)};
    place.Skip(walk, step, first - (walk.start + 1));
    for (auto at = static_cast<std::int32_t>(first); at <= last; ++at) {
        place.Advance(walk, step);
        const auto centre = static_cast<float>(Truncate(place.cross));
        const std::int32_t begin = Truncate(centre + walk.width * -0.5f);
        const float limit = walk.width + static_cast<float>(begin);
        *runs = {at, std::max(begin, 0), limit < crossLimit ? Ceiling(limit) : limits.cross};
        runs += runs->begin < runs->end;
    }
    return runs;
}

}  // namespace brushworks
