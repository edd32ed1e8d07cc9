// A picture file in memory, made on any thread.
#pragma once

#include <string>

#include "media/av.h"
#include "media/encoder_setup.h"
#include "media/output_format.h"

namespace brushworks::media {

/// The bytes of a picture file of that format; the frame has the settings' raster. Throws
/// MediaError.
std::string pictureBytes(AVFrame& frame, const OutputFormat& format, const VideoSettings& settings);

}  // namespace brushworks::media
