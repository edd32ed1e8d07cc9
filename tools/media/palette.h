// Pictures of 256 colours, for GIF.
#pragma once

#include "media/av.h"

namespace brushworks::media {

/// The frame of media::bgraRaster in the 256 colours that suit it best, one of them transparent,
/// spread by dithering. Every frame has colours of its own, so that long videos need no memory and
/// each frame looks its best.
FramePtr withPalette(const AVFrame& bgra);

}  // namespace brushworks::media
