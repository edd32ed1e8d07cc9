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

void CubicWeights(double t, double* weights) {
    weights[0] = ((-0.5 * t + 1.0) * t - 0.5) * t;
    weights[1] = (1.5 * t - 2.5) * t * t + 1.0;
    weights[2] = ((-1.5 * t + 2.0) * t + 0.5) * t;
    weights[3] = (0.5 * t - 0.5) * t * t;
}

void LanczosWeights(double t, double* weights) {
    double sum = 0;
    for (int k = 0; k < 6; ++k) {
        const double distance = t - (k - 2);
        weights[k] = Sinc(distance) * Sinc(distance / 3);
        sum += weights[k];
    }
    for (int k = 0; k < 6; ++k) weights[k] /= sum;
}

/// The weights of a position that lies by `t` behind the last tap at or before it.
void FindWeights(int interpolation, double t, double* weights) {
    switch (interpolation) {
        case kResizeNearest:
            weights[0] = 1;
            break;
        case kResizeLinear:
            weights[0] = 1 - t;
            weights[1] = t;
            break;
        case kResizeCubic:
            CubicWeights(t, weights);
            break;
        default:
            LanczosWeights(t, weights);
            break;
    }
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

void ResizeAxis::TapsAt(int x, ResizeTap* taps) const {
    // From four pixels outside on, all taps meet the edge: farther positions are alike.
    const double u = std::clamp((x + 0.5 - shift) / factor - 0.5, static_cast<double>(lowest - 4),
                                static_cast<double>(highest + 4));
    const double base = std::floor(interpolation == kResizeNearest ? u + 0.5 : u);
    double weights[kMostTaps];
    FindWeights(interpolation, u - base, weights);
    const int count = TapsOf(interpolation);
    const std::int64_t first = static_cast<std::int64_t>(base) - (count - 1) / 2;
    for (int k = 0; k < count; ++k)
        taps[k] = {static_cast<std::int32_t>(std::clamp(first + k, lowest, highest) - lowest),
                   static_cast<float>(weights[k])};
}

}  // namespace brushworks
