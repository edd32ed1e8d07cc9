// A seed for random strokes that comes from the picture alone.
#pragma once

#include <cstdint>

namespace brushworks::frei0r {

/// Hosts number their frames and tell the time each in their own way, and some hand the frames of a
/// clip to several instances; but the picture is the same for all of them. A changed picture gets
/// other strokes, a still one keeps its own. `pixels` are `width` times `height`, in rows.
std::int32_t pictureSeed(const std::uint32_t* pixels, unsigned int width, unsigned int height);

}  // namespace brushworks::frei0r
