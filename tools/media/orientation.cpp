// Reads display matrices and turns pixels by them.
#include "media/orientation.h"

#include <cmath>
#include <cstring>

namespace brushworks::media {
namespace {

template <std::ptrdiff_t kPixel>
void turnPixels(const PixelView& source, const Orientation& orientation, const PixelView& target) {
    const std::ptrdiff_t right = orientation.rightX * kPixel + orientation.rightY * target.span;
    const std::ptrdiff_t down = orientation.downX * kPixel + orientation.downY * target.span;

    // Walking to the left or upwards starts at the far side. Of the two walks along an axis exactly
    // one is not zero, so the sums name its direction.
    const bool fromRight = orientation.rightX + orientation.downX < 0;
    const bool fromBottom = orientation.rightY + orientation.downY < 0;
    std::uint8_t* start = target.data + (fromRight ? (target.width - 1) * kPixel : 0) +
                          (fromBottom ? (target.height - 1) * target.span : 0);
    for (int y = 0; y < source.height; ++y) {
        const std::uint8_t* row = source.data + y * source.span;
        for (int x = 0; x < source.width; ++x) {
            std::memcpy(start + y * down + x * right, row + x * kPixel, kPixel);
        }
    }
}

}  // namespace

Orientation orientationOf(const std::int32_t* displayMatrix) {
    if (displayMatrix == nullptr) return {};
    const auto cell = [&](int index) {
        return static_cast<int>(std::lround(displayMatrix[index] / 65536.0));
    };
    const Orientation told = {cell(0), cell(1), cell(3), cell(4)};
    const bool straight = std::abs(told.rightX) == 1 && told.rightY == 0 && told.downX == 0 &&
                          std::abs(told.downY) == 1;
    const bool onItsSide = told.rightX == 0 && std::abs(told.rightY) == 1 &&
                           std::abs(told.downX) == 1 && told.downY == 0;
    return straight || onItsSide ? told : Orientation{};
}

void turn(const PixelView& source, const Orientation& orientation, const PixelView& target) {
    if (source.bytes == 4) turnPixels<4>(source, orientation, target);
    if (source.bytes == 16) turnPixels<16>(source, orientation, target);
}

}  // namespace brushworks::media
