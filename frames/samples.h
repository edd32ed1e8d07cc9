// Names for the pixel layouts, so that templated code is written once per layout. A row of a frame
// is an array of these; "swapped" means alpha first.
#pragma once

#include <cstdint>

namespace brushworks {

/// One 255th: the scale from 8-bit samples to float ones.
inline constexpr float kByteToFloat = 0.003921569f;

struct VideoSample {
    std::uint8_t b, g, r, a;
};
struct VideoSampleSwapped {
    std::uint8_t a, r, g, b;
};
struct VideoSampleFloat {
    float b, g, r, a;
};
struct VideoSampleSwappedFloat {
    float a, r, g, b;
};
static_assert(sizeof(VideoSample) == 4 && sizeof(VideoSampleSwapped) == 4);
static_assert(sizeof(VideoSampleFloat) == 16 && sizeof(VideoSampleSwappedFloat) == 16);

}  // namespace brushworks
