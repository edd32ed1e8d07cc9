// How large frames may be: what FFmpeg's libraries can hold, and what a caller allows.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <string>

namespace brushworks::media {

/// Whether FFmpeg's libraries make room for a frame of that size.
bool isPossibleSize(int width, int height);

/// For a size that is not: "16384x16384 is too large: ..." with what would do.
std::string tooLargeText(int width, int height);

/// More than any possible size has, and as many as decoders can be told.
constexpr std::int64_t kMostPixels = std::numeric_limits<std::int32_t>::max();

/// What a caller allows.
struct FrameLimit {
    std::int64_t pixels = kMostPixels;
    /// For the frames that threads of a decoder hold.
    std::int64_t bytesAhead = std::numeric_limits<std::int64_t>::max();
    /// What is said of a frame with more pixels, behind the name of the file.
    std::function<std::string(int width, int height)> refusal = {};
};

}  // namespace brushworks::media
