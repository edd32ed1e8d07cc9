#include "effects/cartoon/paint_layer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numeric>

#include "effects/cartoon/tone_curve.h"
#include "effects/tone_table.h"
#include "frames/truncate.h"
#include "primitives/border.h"
#include "processors/canvaskit/contrast.h"
#include "processors/canvaskit/median.h"
#include "processors/filter.h"
#include "processors/region.h"
#include "processors/rgb_hsv.h"
#include "processors/set_color.h"

namespace brushworks {
namespace {

using Histogram = std::array<std::uint32_t, 256>;

/// A pixel of the converted frame.
struct HsvaBytes {
    std::uint8_t h, s, v, a;
};

void Flatten(CFrame& source, CFrame& flat, float smooth, bool field) {
    const int radius = Truncate(
        static_cast<float>(flat.m_nHeight) * smooth * 0.05f * (field ? 2.0f : 1.0f) + 1.0f);
    Canvaskit::CMedian().Process(source, flat, radius, field ? radius / 2 : radius);
}

ToneTable SaturationTable(float color) {
    ToneTable table;
    const float factor = std::pow(2.0f, color * 4.0f - 2.0f);
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<unsigned char>(std::min(static_cast<float>(i) * factor, 255.0f));
    return table;
}

Histogram ValuesOf(const CFrame& hsv) {
    Histogram histogram{};
    for (int y = 0; y < hsv.m_nHeight; ++y) {
        const auto* row = Processors::RowOf<const HsvaBytes>(hsv, y);
        for (int x = 0; x < hsv.m_nWidth; ++x) ++histogram[row[x].v];
    }
    return histogram;
}

/// The mean of the values from `low` up to `high`, rounded down; 0 where the picture has none.
int MeanOf(const Histogram& histogram, int low, int high) {
    std::uint64_t count = 0, sum = 0;
    for (int i = low; i < high; ++i) {
        count += histogram[static_cast<std::size_t>(i)];
        sum += std::uint64_t{histogram[static_cast<std::size_t>(i)]} * static_cast<unsigned>(i);
    }
    return static_cast<int>(sum / std::max<std::uint64_t>(count, 1));
}

/// Cuts the values into `layers` of equal width, each drawn to the mean of what the picture has
/// there.
ToneTable LayerTable(const Histogram& histogram, int layers, float strength) {
    ToneTable table;
    const int share = Truncate(strength * 256.0f), own = 256 - share;
    for (int layer = 0; layer < layers; ++layer) {
        const int low = layer * 256 / layers, high = (layer + 1) * 256 / layers;
        int value = low * own + share * MeanOf(histogram, low, high);
        for (int i = low; i < high; ++i, value += own)
            table[static_cast<std::size_t>(i)] = static_cast<unsigned char>(value >> 8);
    }
    return table;
}

ToneTable Identity() {
    ToneTable table;
    std::iota(table.begin(), table.end(), static_cast<unsigned char>(0));
    return table;
}

/// Turns the hue, which wraps around in its byte, and looks up the rest.
void Recolour(CFrame& hsv, int hue, const ToneTable& saturation, const ToneTable& value) {
    for (int y = 0; y < hsv.m_nHeight; ++y) {
        auto* row = Processors::RowOf<HsvaBytes>(hsv, y);
        for (int x = 0; x < hsv.m_nWidth; ++x)
            row[x] = {static_cast<std::uint8_t>(row[x].h + hue), saturation[row[x].s],
                      value[row[x].v], row[x].a};
    }
}

/// Where memory cannot be had the destination stays as it is.
void Sharpen(const CFrame& frame, CFrame& destination, float sharpen) {
    constexpr int kSize = 5, kBorder = kSize / 2;
    CFrame bordered;
    if (!bordered.Init(frame.m_nWidth + 2 * kBorder, frame.m_nHeight + 2 * kBorder, frame.m_nDepth,
                       nullptr, frame.m_pfPixelFormat, false))
        return;
    ippiCopyReplicateBorder_8u_C4R(frame.m_pBuffer, frame.m_nByteSpan, Processors::SizeOf(frame),
                                   bordered.m_pBuffer, bordered.m_nByteSpan,
                                   Processors::SizeOf(bordered), kBorder, kBorder);
    float kernel[kSize * kSize];
    CContrast().fillCore(kernel, kSize, double{sharpen * 10.0f});
    Processors::CFilter().Process(&bordered, &destination, kernel, kSize, /*toOrigin=*/true);
}

}  // namespace

bool Clasterize(CFrame& source, CFrame& destination, const PaintSettings& set, bool field) {
    constexpr float kMostLayers = 1.96f;
    const bool layered = !(set.layers > kMostLayers);
    const float offset = 1.0f - set.brightness;
    const IppiSize size = Processors::CommonSize(source, destination);
    CFrame paint;
    if (!paint.Init(size.width, size.height, source.m_nDepth, nullptr, source.m_pfPixelFormat,
                    false))
        return false;
    Processors::CSetColor().Process(&paint, 0);  // the brush leaves alpha alone

    Flatten(source, paint, set.smooth, field);
    Contrast(&paint, &paint, set.contrast, offset, layered ? 2.0f : 3.0f);
    Processors::CRGBToHSV().Process(&paint, &paint);
    const int hue = Truncate((set.shift - 0.5f) * 64.0f);
    const int layers = Truncate(set.layers * 14.0f + 2.0f);
    Recolour(paint, hue, SaturationTable(set.color),
             layered ? LayerTable(ValuesOf(paint), layers, set.strength) : Identity());
    if (set.sharpen > 0.0f) {
        Processors::CHSVToRGB().Process(&paint, &paint);
        Sharpen(paint, destination, set.sharpen);
    } else {
        Processors::CHSVToRGB().Process(&paint, &destination);
    }
    Contrast(&destination, &destination, set.contrast, offset, 1.5f);
    return true;
}

}  // namespace brushworks
