#include "frames/fast_math.h"

#include <cmath>
#include <numbers>

namespace brushworks::LFMath {
namespace {

constexpr int kSteps = kTableSize - 1;

std::array<float, kTableSize> MakeTable(double (*function)(double)) {
    std::array<float, kTableSize> table;
    for (int i = 0; i < kTableSize; ++i)  // the last entry is the first one, to the bit
        table[i] = static_cast<float>(function((i % kSteps) * 2.0 * std::numbers::pi / kSteps));
    return table;
}

int TableIndex(float radians) {
    constexpr float kPeriod = 6.2831855f;
    constexpr float kPerPeriod = 0.15915494f;
    if (radians > kPeriod || radians < 0.0f)
        radians = static_cast<float>(
            radians + static_cast<double>(std::floor(radians * kPerPeriod)) * -6.2831854820251465);
    const float step = radians * 100.0f + 0.5f;
    // Huge angles have no digits left for a place in the period, and NaN has none at all.
    if (!(step > 0.0f)) return 0;
    return step < static_cast<float>(kTableSize) ? static_cast<int>(step) : kSteps;
}

}  // namespace

const std::array<float, kTableSize> afSin = MakeTable([](double x) { return std::sin(x); });
const std::array<float, kTableSize> afCos = MakeTable([](double x) { return std::cos(x); });

float FastSin(float radians) {
    return afSin[TableIndex(radians)];
}

float FastCos(float radians) {
    return afCos[TableIndex(radians)];
}

float FastSqrt(float value) {
    float y = (value + 1.0f) * 0.5f;
    for (int step = 0; step < 5; ++step) y = (value / y + y) * 0.5f;
    return y;
}

}  // namespace brushworks::LFMath
