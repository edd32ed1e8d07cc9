// The file types that can be written, known by their extensions.
#pragma once

#include <span>
#include <string>

#include "media/av.h"

namespace brushworks::media {

/// How files of one type are written.
struct OutputFormat {
    const char* extension;  ///< small letters, without the point
    const char* muxer;
    const char* encoder;       ///< the usual one
    const char* alphaEncoder;  ///< for sources with alpha; null where the type has no room for it
    const char* losslessYuv;   ///< what --lossless takes for brightness and colour differences
    const char* losslessRgb;   ///< and for red, green, blue; null where there is none
    bool picture = false;      ///< one picture; otherwise a video
    bool keepsTurn = false;    ///< notes how pictures are to be turned
    bool keepsChapters = false;
    bool keepsCover = false;  ///< a picture of the whole, as a stream of its own
    bool keepsAttachments = false;
    bool evenTimes = false;  ///< holds one frame rate and no times
};

std::span<const OutputFormat> outputFormats();

/// The type that belongs to the path's extension, and that of standard output for "-"; throws
/// MediaUsageError.
const OutputFormat& outputFormatOf(const std::string& path);

/// Whether the type's muxer takes packets of a codec: 1, 0, or less than 0 where it does not tell.
int muxerTakes(const OutputFormat& format, AVCodecID codec);

/// The extensions of all pictures, or of all videos: ".png, .jpg".
std::string extensionList(bool picture);

}  // namespace brushworks::media
