// Whether a container file is as long as it says itself. Demuxers are content with what there is.
#pragma once

#include "media/av.h"

namespace brushworks::media {

/// True when the outermost structure of an MP4, Matroska or RIFF file goes on behind the end of
/// the file. False for other types, which do not tell. Leaves the position at the start.
bool endsEarly(AVIOContext& io);

}  // namespace brushworks::media
