// Hashes a sparse grid of pixels, so that the cost does not grow with the picture.
#include "frei0r/picture_seed.h"

#include <algorithm>
#include <cstddef>

namespace brushworks::frei0r {

std::int32_t pictureSeed(const std::uint32_t* pixels, unsigned int width, unsigned int height) {
    constexpr unsigned int kGrid = 32;  // places a side
    const unsigned int columns = std::min(width, kGrid);
    const unsigned int rows = std::min(height, kGrid);
    std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a, a pixel at a time
    for (std::size_t j = 0; j < rows; ++j) {
        const std::uint32_t* const row = pixels + j * height / rows * width;
        for (std::size_t i = 0; i < columns; ++i) {
            hash = (hash ^ row[i * width / columns]) * 0x100000001B3;
        }
    }
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(hash ^ hash >> 32));
}

}  // namespace brushworks::frei0r
