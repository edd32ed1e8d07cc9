// The file types that can be written, known by their extensions.
#pragma once

#include <string>

namespace brushworks::media {

/// How files of one type are written.
struct OutputFormat {
    const char* extension;  ///< small letters, without the point
    const char* muxer;
    const char* encoder;
    bool picture;    ///< one picture; otherwise a video
    bool keepAlpha;  ///< the type has room for an alpha channel
};

/// The type that belongs to the path's extension; throws MediaUsageError.
const OutputFormat& outputFormatOf(const std::string& path);

/// The extensions of all pictures, or of all videos: ".png, .jpg".
std::string extensionList(bool picture);

}  // namespace brushworks::media
