// Reads display matrices and turns pictures by them.
#include "media/orientation.h"

#include <cmath>
#include <cstddef>
#include <cstring>

namespace brushworks::media {

Orientation orientationOf(const std::int32_t* displayMatrix) {
    if (displayMatrix == nullptr) return {};
    const auto cell = [&](int index) {
        return static_cast<int>(std::lround(displayMatrix[index] / 65536.0));
    };
    const Orientation turn = {cell(0), cell(1), cell(3), cell(4)};
    const bool straight = std::abs(turn.rightX) == 1 && turn.rightY == 0 && turn.downX == 0 &&
                          std::abs(turn.downY) == 1;
    const bool onItsSide = turn.rightX == 0 && std::abs(turn.rightY) == 1 &&
                           std::abs(turn.downX) == 1 && turn.downY == 0;
    return straight || onItsSide ? turn : Orientation{};
}

void turnUpright(const AVFrame& recorded, const Orientation& orientation, AVFrame& upright) {
    constexpr std::ptrdiff_t kPixel = 4;
    const std::ptrdiff_t span = upright.linesize[0];
    const std::ptrdiff_t right = orientation.rightX * kPixel + orientation.rightY * span;
    const std::ptrdiff_t down = orientation.downX * kPixel + orientation.downY * span;

    // Walking to the left or upwards starts at the far side.
    const bool fromRight = orientation.rightX + orientation.downX < 0;
    const bool fromBottom = orientation.rightY + orientation.downY < 0;
    // Of the two walks along an axis exactly one is not zero, so the sums above name its direction.
    std::uint8_t* start = upright.data[0] + (fromRight ? (upright.width - 1) * kPixel : 0) +
                          (fromBottom ? (upright.height - 1) * span : 0);
    for (int y = 0; y < recorded.height; ++y) {
        const std::uint8_t* source =
            recorded.data[0] + static_cast<std::ptrdiff_t>(y) * recorded.linesize[0];
        for (int x = 0; x < recorded.width; ++x) {
            std::memcpy(start + y * down + x * right, source + x * kPixel, kPixel);
        }
    }
}

}  // namespace brushworks::media
