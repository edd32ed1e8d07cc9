// Pictures as pages show them: upright, with square pixels, no larger than wanted.
#pragma once

#include <string>

#include "media/av.h"
#include "media/frame_limit.h"

namespace brushworks::tools {

/// A picture, or the first frame of a video.
struct StillPicture {
    media::FramePtr frame;  ///< of media::bgraRaster
    int fullWidth = 0;      ///< as it was before it was reduced, upright
    int fullHeight = 0;
    bool squarePixels = false;  ///< the file told the shape of its pixels, so that it is known
    bool video = false;
};

/// Reads a file and reduces what is wider than `maxWidth`. Throws media::MediaError.
StillPicture readStill(const std::string& path, int maxWidth, const media::FrameLimit& limit = {});

/// Whether any pixel of a frame of media::bgraRaster can be seen through.
bool isTransparent(const AVFrame& bgra);

/// Writes a frame of media::bgraRaster; the extension tells the type. Throws media::MediaError.
void writeStill(const AVFrame& bgra, const std::string& path);

}  // namespace brushworks::tools
