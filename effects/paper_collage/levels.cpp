#include "effects/paper_collage/levels.h"

#include <algorithm>

#include "frames/truncate.h"

namespace brushworks {
namespace {

int ByteOf(std::uint32_t color, int shift) {
    return static_cast<int>(color >> shift & 255);
}

/// The word whose bytes are channel(shift of the byte).
template <class Channel>
std::uint32_t EachChannel(Channel channel) {
    std::uint32_t word = 0;
    for (const int shift : {0, 8, 16}) word |= static_cast<std::uint32_t>(channel(shift)) << shift;
    return word;
}

/// `a` by `weight` and `b` by the rest; 255 ends as 254, since the sum is cut by 256.
std::uint32_t Mix(std::uint32_t a, std::uint32_t b, int weight) {
    return EachChannel([=](int shift) {
        return (ByteOf(a, shift) * weight + ByteOf(b, shift) * (255 - weight)) >> 8;
    });
}

int Luminance(std::uint32_t color) {
    return (ByteOf(color, 0) * 76 + ByteOf(color, 8) * 149 + ByteOf(color, 16) * 30) >> 8;
}

/// A part of the distance that a channel has left, by how far its level is from the middle.
int Stretch(int left, int steps, int half, float contrast) {
    return Truncate(static_cast<float>(left * steps / half) * contrast) & 255;
}

std::uint32_t Brighten(std::uint32_t color, int steps, int half, float contrast) {
    return EachChannel([=](int shift) {
        const int channel = ByteOf(color, shift);
        return std::min(channel + Stretch(255 - channel, steps, half, contrast), 255);
    });
}

std::uint32_t Darken(std::uint32_t color, int steps, int half, float contrast) {
    return EachChannel([=](int shift) {
        const int channel = ByteOf(color, shift);
        return std::max(channel - Stretch(channel, steps, half, contrast), 0);
    });
}

/// Colours may rise or fall from the first level to the last: the found sheets that are nearest to
/// the middle tell.
bool BrightenUpwards(std::span<const Level> levels, std::size_t half) {
    std::size_t low = 0, high = 0;
    for (std::size_t i = 0; i < half; ++i)
        if (levels[i].isFound) low = i;
    for (std::size_t i = levels.size(); i-- > levels.size() - half;)
        if (levels[i].isFound) high = i;
    return Luminance(levels[low].color) <= Luminance(levels[high].color);
}

/// Drives the two halves of the levels apart, the outer ones most. An odd one in the middle stays.
void StretchContrast(std::span<Level> levels, float contrast) {
    const std::size_t half = levels.size() / 2;
    const bool upwards = BrightenUpwards(levels, half);
    for (std::size_t i = 0; i < half; ++i) {
        std::uint32_t& low = levels[i].color;
        std::uint32_t& high = levels[levels.size() - 1 - i].color;
        std::uint32_t& bright = upwards ? high : low;
        std::uint32_t& dark = upwards ? low : high;
        const int steps = static_cast<int>(half - i), all = static_cast<int>(half);
        bright = Brighten(bright, steps, all, contrast);
        dark = Darken(dark, steps, all, contrast);
    }
}

}  // namespace

void ColorSheets(std::span<Level> levels, const SheetColors& colors) {
    for (Level& level : levels) {
        const std::uint32_t chosen = Mix(colors.foreground, colors.background, level.value);
        level.color = Mix(level.color, chosen, colors.blend);
    }
    StretchContrast(levels, colors.contrast);
}

std::uint32_t DriftShadow(std::uint32_t shadow, std::uint32_t sheet, int keep) {
    return Mix(sheet, shadow, keep);
}

}  // namespace brushworks
