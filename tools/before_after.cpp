// Copies rows, and draws the line: white between black edges, so that it shows on any picture.
#include "before_after.h"

#include <algorithm>
#include <cstring>

namespace brushworks::tools {
namespace {

constexpr int kReferenceHeight = 540;  ///< lines in which the line's white part is 2 wide
constexpr int kFloatPixel = 16;        ///< bytes

/// A part of a picture; what lies outside of the picture is left out.
media::PixelView cut(const media::PixelView& picture, int x, int y, int width, int height) {
    const int left = std::clamp(x, 0, picture.width);
    const int top = std::clamp(y, 0, picture.height);
    const int right = std::clamp(x + width, left, picture.width);
    const int bottom = std::clamp(y + height, top, picture.height);
    std::uint8_t* first = picture.data + top * picture.span + std::ptrdiff_t{left} * picture.bytes;
    return {first, right - left, bottom - top, picture.span, picture.bytes};
}

/// Fills the view with an opaque grey.
void fill(const media::PixelView& view, bool white) {
    for (int y = 0; y < view.height; ++y) {
        std::uint8_t* row = view.data + y * view.span;
        for (int x = 0; x < view.width; ++x) {
            std::uint8_t* pixel = row + std::ptrdiff_t{x} * view.bytes;
            if (view.bytes == kFloatPixel) {
                const float level = white ? 1 : 0;
                const float samples[] = {level, level, level, 1};
                std::memcpy(pixel, samples, sizeof samples);
            } else {
                const std::uint8_t level = white ? 255 : 0;
                const std::uint8_t samples[] = {level, level, level, 255};
                std::memcpy(pixel, samples, sizeof samples);
            }
        }
    }
}

}  // namespace

const std::vector<std::string>& keptHalfNames() {
    static const std::vector<std::string> names = {"left", "top"};
    return names;
}

KeptHalf keptHalf(const std::string& name) {
    if (name.empty()) return KeptHalf::None;
    return name == keptHalfNames()[0] ? KeptHalf::Left : KeptHalf::Top;
}

media::PixelView BeforeAfter::halfOf(const media::PixelView& picture) const {
    if (m_half == KeptHalf::Left) return cut(picture, 0, 0, picture.width / 2, picture.height);
    return cut(picture, 0, 0, picture.width, picture.height / 2);
}

void BeforeAfter::remember(const media::PixelView& original) {
    if (m_half == KeptHalf::None) return;
    const media::PixelView half = halfOf(original);
    const std::size_t row = static_cast<std::size_t>(half.width) * half.bytes;
    m_pixels.resize(row * half.height);
    for (int y = 0; y < half.height; ++y) {
        std::copy_n(half.data + y * half.span, row, m_pixels.data() + row * y);
    }
}

void BeforeAfter::restore(const media::PixelView& painted) const {
    if (m_half == KeptHalf::None) return;
    const media::PixelView half = halfOf(painted);
    const std::size_t row = static_cast<std::size_t>(half.width) * half.bytes;
    for (int y = 0; y < half.height; ++y) {
        std::copy_n(m_pixels.data() + row * y, row, half.data + y * half.span);
    }
    const int edge = std::max(1, (painted.height + kReferenceHeight / 2) / kReferenceHeight);
    for (const int width : {4 * edge, 2 * edge}) {
        const bool white = width == 2 * edge;
        if (m_half == KeptHalf::Left) {
            fill(cut(painted, half.width - width / 2, 0, width, painted.height), white);
        } else {
            fill(cut(painted, 0, half.height - width / 2, painted.width, width), white);
        }
    }
}

}  // namespace brushworks::tools
