// Writes a picture or a video: encodes frames, and copies packets of other streams beside them.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "media/av.h"
#include "media/output_format.h"
#include "media/raster.h"

namespace brushworks::media {

/// What the written picture or video stream is like.
struct VideoSettings {
    Raster raster;
    AVRational timeBase = {1, 25};    ///< of the frames' times
    AVRational frameRate = {0, 1};    ///< 0/1 where it is not known
    AVRational pixelAspect = {0, 1};  ///< 0/1 where it is not known
    AVColorPrimaries primaries = AVCOL_PRI_UNSPECIFIED;
    AVColorTransferCharacteristic transfer = AVCOL_TRC_UNSPECIFIED;
    bool tagMatrix = true;  ///< false where the input left its matrix open
    bool tagRange = true;   ///< likewise the range
    bool interlaced = false;
    const AVDictionary* metadata = nullptr;        ///< of the file, or null
    const AVDictionary* streamMetadata = nullptr;  ///< of the video stream, or null
};

/// The raster that `format` is written with, when frames like `decoded` are turned to `width` by
/// `height`.
Raster outputRaster(const OutputFormat& format, const Raster& decoded, int width, int height);

/// One output file. Nothing is whole until finish() has returned. [one thread at a time]
class Writer {
  public:
    /// Opens the file at `path` and writes its head. `copied` are streams of an input whose packets
    /// will follow.
    Writer(const std::string& path, const OutputFormat& format, const VideoSettings& settings,
           const std::vector<const AVStream*>& copied);

    /// Adds a frame of the settings' raster; its times grow from frame to frame.
    void writeFrame(AVFrame& frame);
    /// Adds a packet of a copied stream.
    void writePacket(AVPacket& packet);
    /// Writes what encoder and muxer still hold, and closes the file.
    void finish();

  private:
    void openEncoder(const OutputFormat& format, const VideoSettings& settings);
    void addVideoStream(const VideoSettings& settings);
    void addCopiedStream(const AVStream& source);
    void drainEncoder();

    std::string m_sPath;
    IoPtr m_pIo;
    OutputPtr m_pOutput;
    CodecPtr m_pEncoder;
    AVStream* m_pVideo = nullptr;
    std::map<int, AVStream*> m_copies;                 ///< by stream index of the input
    std::map<int, AVRational> m_inputBases;            ///< likewise
    std::map<std::int64_t, std::int64_t> m_durations;  ///< of frames in the encoder, by time
    std::int64_t m_nLastTime = AV_NOPTS_VALUE;
};

}  // namespace brushworks::media
