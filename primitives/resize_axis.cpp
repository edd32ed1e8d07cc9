#include "primitives/resize_axis.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "primitives/resize.h"

namespace brushworks {
namespace {

/// Exact at whole numbers, so that a factor of 1 changes nothing.
double Sinc(double x) {
    if (x == 0) return 1;
    if (x == std::floor(x)) return 0;
    return std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
}

void CubicWeights(double t, float* weights) {
    weights[0] = static_cast<float>(((-0.5 * t + 1.0) * t - 0.5) * t);
    weights[1] = static_cast<float>((1.5 * t - 2.5) * t * t + 1.0);
    weights[2] = static_cast<float>(((-1.5 * t + 2.0) * t + 0.5) * t);
    weights[3] = static_cast<float>((0.5 * t - 0.5) * t * t);
}

void LanczosWeights(double t, float* weights) {
    double w[6], sum = 0;
    for (int k = 0; k < 6; ++k) {
        const double distance = t - (k - 2);
        w[k] = Sinc(distance) * Sinc(distance / 3);
        sum += w[k];
    }
    for (int k = 0; k < 6; ++k) weights[k] = static_cast<float>(w[k] / sum);
}

}  // namespace

int TapsOf(int interpolation) {
    switch (interpolation) {
        case kResizeNearest:
            return 1;
        case kResizeLinear:
            return 2;
        case kResizeCubic:
            return 4;
        case kResizeLanczos:
            return 6;
        default:
            return 0;
    }
}

std::int64_t ResizeAxis::FirstTap(int x, float* weights) const {
    // From four pixels outside on, all taps meet the edge: farther positions are alike.
    const double u = std::clamp((x + 0.5 - shift) / factor - 0.5, static_cast<double>(lowest - 4),
                                static_cast<double>(highest + 4));
    if (interpolation == kResizeNearest) {
        weights[0] = 1.0f;
        return static_cast<std::int64_t>(std::floor(u + 0.5));
    }
    const double base = std::floor(u), t = u - base;
    switch (interpolation) {
        case kResizeLinear:
            weights[1] = static_cast<float>(t);
            weights[0] = 1.0f - weights[1];
            break;
        case kResizeCubic:
            CubicWeights(t, weights);
            break;
        default:
            LanczosWeights(t, weights);
            break;
    }
    return static_cast<std::int64_t>(base) - (TapsOf(interpolation) / 2 - 1);
}

std::int64_t ResizeAxis::Inside(std::int64_t position) const {
    return std::clamp(position, lowest, highest);
}

}  // namespace brushworks
