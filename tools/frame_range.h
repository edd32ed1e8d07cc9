// The part of a video or sequence that is asked for.
#pragma once

#include <cstdint>
#include <limits>
#include <string>

#include "media/av.h"

namespace brushworks::tools {

/// Frames counted from 0, both ends included.
struct FrameRange {
    static constexpr std::int64_t kEnd = std::numeric_limits<std::int64_t>::max();

    std::int64_t first = 0;
    std::int64_t last = kEnd;

    bool isWhole() const { return first == 0 && last == kEnd; }

    /// "A-B", "A-", "-B" or "A". Throws host::UsageError.
    static FrameRange parse(const std::string& text);
};

/// What is painted of a video, and when it is shown.
struct Part {
    FrameRange range;
    double seconds = 0;        ///< from the first frame of the range on; 0: all of it
    AVRational rate = {0, 1};  ///< frames a second of the output, 0/1 for the input's own times

    bool isWhole() const { return range.isWhole() && seconds <= 0; }
};

}  // namespace brushworks::tools
