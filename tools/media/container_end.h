// Whether a file is as long as it says itself. Demuxers are content with what there is.
#pragma once

#include <cstdint>
#include <optional>

#include "media/av.h"

namespace brushworks::media {

/// Where the contents end: with the file, but for what follows a GIF's trailer. Nothing when the
/// outermost structure of an MP4, Matroska, RIFF, PNG, GIF, TIFF or transport stream file goes on
/// behind the end of the file; other types do not tell, nor do files that were left open. Leaves
/// the position at the start.
std::optional<std::int64_t> contentEnd(AVIOContext& io);

}  // namespace brushworks::media
