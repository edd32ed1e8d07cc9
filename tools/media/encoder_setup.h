// Opens an encoder for the frames of a picture or a video.
#pragma once

#include "media/av.h"
#include "media/encoder.h"
#include "media/output_format.h"
#include "media/raster.h"

namespace brushworks::media {

/// How the fields of a frame follow each other.
enum class FieldOrder { Progressive, TopFirst, BottomFirst };

/// What the written picture or video stream is like.
struct VideoSettings {
    Encoding encoding;
    Raster raster;
    AVRational timeBase = {1, 25};    ///< of the frames' times
    AVRational frameRate = {0, 1};    ///< 0/1 where it is not known
    AVRational pixelAspect = {0, 1};  ///< 0/1 where it is not known
    AVColorPrimaries primaries = AVCOL_PRI_UNSPECIFIED;
    AVColorTransferCharacteristic transfer = AVCOL_TRC_UNSPECIFIED;
    AVChromaLocation chromaLocation = AVCHROMA_LOC_UNSPECIFIED;
    bool tagMatrix = true;  ///< false where the input left its matrix open
    bool tagRange = true;   ///< likewise the range
    FieldOrder fields = FieldOrder::Progressive;
};

/// An encoder that takes frames of the settings' raster. With `globalHeader` what describes the
/// video goes to the head of the file and not into the frames. Throws MediaError.
CodecPtr openEncoder(const OutputFormat& format, const VideoSettings& settings, bool globalHeader);

}  // namespace brushworks::media
