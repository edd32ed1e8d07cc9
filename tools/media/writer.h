// Writes a picture or a video: encodes frames, and copies packets of other streams beside them.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "media/av.h"
#include "media/encoder_setup.h"
#include "media/output_format.h"

namespace brushworks::media {

/// What is copied beside the frames.
struct Companions {
    const AVFormatContext* input = nullptr;  ///< for metadata and chapters, or null
    const AVStream* video = nullptr;         ///< the input's that is painted, or null
    bool keepTurn = false;                   ///< its note of how it is to be turned is copied too
    std::vector<const AVStream*> streams;    ///< whose packets follow
    bool keepChapters = true;
};

/// One output file. Nothing is whole until finish() has returned. [one thread at a time]
class Writer {
  public:
    /// Opens the file at `path`, or standard output for "-", and writes its head.
    Writer(const std::string& path, const OutputFormat& format, const VideoSettings& settings,
           const Companions& companions = {});
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// Adds a frame of the settings' raster; its times grow from frame to frame.
    void writeFrame(AVFrame& frame);
    /// Adds a packet of the input; those of streams that are not copied go nowhere.
    void writePacket(AVPacket& packet);
    /// Writes what encoder and muxer still hold, and closes the file.
    void finish();

  private:
    void addVideoStream(const VideoSettings& settings, const Companions& companions);
    void addCompanions(const OutputFormat& format, const Companions& companions);
    void writeHead(const OutputFormat& format, const std::string& url, const std::string& failure);
    void drainEncoder();

    IoPtr m_pIo;
    OutputPtr m_pOutput;
    CodecPtr m_pEncoder;
    AVStream* m_pVideo = nullptr;
    AVRational m_timeBase;                             ///< of the frames that come
    std::map<int, AVStream*> m_copies;                 ///< by stream index of the input
    std::map<int, AVRational> m_inputBases;            ///< likewise
    std::map<std::int64_t, std::int64_t> m_durations;  ///< of frames in the encoder, by time
    std::int64_t m_nLastTime = AV_NOPTS_VALUE;
};

}  // namespace brushworks::media
