// How controls become a colour matrix.
#include <cmath>
#include <cstring>
#include <utility>

#include "frames/samples.h"
#include "processors/color_twist.h"

namespace brushworks::Processors {
namespace {

using Matrix = float[5][5];

constexpr float kRadiansPerDegree = 0.017453292f;

// Luminance weights of red, green and blue.
constexpr float kRedWeight = 0.3086f;
constexpr float kGreenWeight = 0.6094f;
constexpr float kBlueWeight = 0.082f;

void SetIdentity(Matrix& m) {
    for (int r = 0; r < 5; ++r)
        for (int c = 0; c < 5; ++c) m[r][c] = r == c ? 1.0f : 0.0f;
}

/// result = left times right. Column 4 of the result keeps what it holds: it is that of the
/// identity, and nothing reads it. The result may be one of the operands.
void Multiply(const Matrix& left, const Matrix& right, Matrix& result) {
    Matrix product;
    for (int r = 0; r < 5; ++r)
        for (int c = 0; c < 4; ++c) {
            float sum = 0;
            for (int k = 0; k < 5; ++k) sum += left[r][k] * right[k][c];
            product[r][c] = sum;
        }
    for (int r = 0; r < 5; ++r) std::memcpy(result[r], product[r], 4 * sizeof(float));
}

/// The factor of a contrast control: gentler below neutral than above.
float ContrastFactor(float contrast) {
    const float p =
        contrast < 0.5f ? 2.0f * 0.4575f * contrast : 1.0f - 2.0f * 0.5425f * (1.0f - contrast);
    return 3.8f * (p * p) + 0.2f;
}

/// The exponent puts the neutral 0.5 at a factor of 1.
float SaturationFactor(float saturation) {
    return static_cast<float>(3.0 * std::pow(double{saturation}, double{1.58496f}));
}

void MakeSaturation(float s, Matrix& m) {
    const float u = 1.0f - s;
    const float weights[3] = {kRedWeight * u, kGreenWeight * u, kBlueWeight * u};
    SetIdentity(m);
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) m[r][c] = r == c ? weights[r] + s : weights[r];
}

/// Column i of the matrix for each result channel i.
void WriteColumns(const Matrix& m, float (*out)[4]) {
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k) out[i][k] = m[k][i];
        out[i][3] = m[4][i];
    }
}

void ExchangeChannelOrder(float (*out)[4]) {
    for (int j = 0; j < 4; ++j) std::swap(out[0][j], out[2][j]);
    for (int i = 0; i < 3; ++i) std::swap(out[i][0], out[i][2]);
}

}  // namespace

void CColorTwist::RotateColor(float (&matrix)[5][5], float degrees, int a, int b, int order) {
    if (a < 0 || a > 4 || b < 0 || b > 4) return;
    const float t = degrees * kRadiansPerDegree;
    const float cosine = std::cos(t), sine = std::sin(t);
    Matrix rotation;
    SetIdentity(rotation);
    rotation[a][a] = cosine;
    rotation[b][b] = cosine;
    rotation[b][a] = sine;
    rotation[a][b] = -sine;
    if (order == 0)
        Multiply(matrix, rotation, matrix);
    else
        Multiply(rotation, matrix, matrix);
}

void CColorTwist::RotateHue(float (&matrix)[5][5], float degrees) {
    // To the gray axis, sheared so that luminance does not change along the turn.
    Matrix there, shear;
    SetIdentity(there);
    RotateColor(there, 45.0f, 1, 0, /*order=*/0);
    RotateColor(there, -35.0f, 0, 2, /*order=*/1);
    constexpr float kLuminance[4] = {kBlueWeight, kGreenWeight, kRedWeight, 1.0f};
    float w[3];
    for (int j = 0; j < 3; ++j) {
        w[j] = 0;
        for (int k = 0; k < 4; ++k) w[j] += kLuminance[k] * there[k][j];
        w[j] += there[4][j];
    }
    const float q = w[0] / w[2];
    SetIdentity(shear);
    shear[1][0] = q;
    Multiply(shear, there, there);

    Matrix back;
    SetIdentity(back);
    shear[1][0] = -q;
    Multiply(back, shear, back);
    RotateColor(back, 35.0f, 0, 2, /*order=*/1);
    RotateColor(back, -45.0f, 1, 0, /*order=*/1);

    Multiply(there, matrix, matrix);
    RotateColor(matrix, degrees, 2, 1, /*order=*/1);
    Multiply(back, matrix, matrix);
}

bool CColorTwist::GetMatrix(float contrast, float brightness, float saturation, float hue,
                            unsigned int color, float colorAmount, PixelFormat format,
                            float (*matrix)[4], bool keepOrder) {
    const float c = ContrastFactor(contrast);
    float offset = 2.0f * brightness - 1.0f;
    float tint = 2.0f * colorAmount - 1.0f;
    if (format < 2) {
        offset *= 255.0f;
        tint *= 255.0f;
    }

    Matrix m, step;
    SetIdentity(m);
    SetIdentity(step);
    for (int i = 0; i < 3; ++i) step[i][i] = c;
    Multiply(m, step, m);

    SetIdentity(step);
    for (int i = 0; i < 3; ++i) {
        const auto channel = static_cast<float>(color >> (16 - 8 * i) & 255);
        step[4][i] = offset + tint * (channel / 255.0f - 0.5f);
    }
    Multiply(step, m, m);

    MakeSaturation(SaturationFactor(saturation), step);
    Multiply(step, m, m);

    RotateHue(m, 180.0f - 360.0f * hue);

    WriteColumns(m, matrix);
    if (!keepOrder) ExchangeChannelOrder(matrix);
    return true;
}

bool CColorTwist::GetMatrix(float contrast, float brightness, float saturation, float hue,
                            PixelFormat format, float (*matrix)[4], bool keepOrder) {
    return GetMatrix(contrast, brightness, saturation, hue, 0xffffffff, 0.5f, format, matrix,
                     keepOrder);
}

}  // namespace brushworks::Processors
