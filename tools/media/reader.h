// Reads a picture or a video: decoded frames in display order, and the packets of the streams that
// are copied as they are. Anything damaged or missing is an error.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "media/av.h"
#include "media/frame_limit.h"
#include "media/log.h"
#include "media/orientation.h"

namespace brushworks::media {

/// One input file, or YUV4MPEG2 on standard input. [one thread at a time]
class Reader {
  public:
    /// Opens the file, or standard input for "-"; throws MediaError, also where its frames are
    /// larger than FFmpeg's libraries or the limit allow: before any is decoded where the head of
    /// the file tells the size, and else before there is memory for it.
    explicit Reader(const std::string& path, FrameLimit limit = {});

    /// Whether the file is one picture. Decodes nothing; throws MediaError when it is neither that
    /// nor a video.
    static bool isPictureFile(const std::string& path);
    /// The same of this one.
    bool isPicture() const { return m_bPicture; }

    /// The next frame, with its time in timeBase(); null behind the last one. Throws MediaError
    /// when the file is damaged or ends too early.
    FramePtr next();

    /// Makes frame `number`, counted from 0, the one that next() gives, behind those that it gave
    /// already. Frames in front of it are not even decoded where the file tells what depends on
    /// them. False when that went wrong: then a new reader has to decode them all.
    bool skipTo(std::int64_t number);

    /// Reads packets of other streams on until they are `seconds` far, without frames. Nothing
    /// can be decoded any more.
    void readOthersTo(double seconds);

    /// The packets to be copied that have been read by the way, in their order, since the last
    /// call. Their stream_index is that of a stream of input().
    std::deque<PacketPtr> takePackets() { return std::exchange(m_packets, {}); }

    /// How many frames the decoder holds at most beside the one that it gave, as far as is known.
    int decoderFrames() const;

    /// The stream that next() decodes.
    const AVStream& video() const { return *m_pInput->streams[m_nVideo]; }
    /// All others: packets are handed out of those that hold any.
    std::vector<const AVStream*> otherStreams() const;
    /// The input itself, for its metadata and chapters.
    const AVFormatContext& input() const { return *m_pInput; }

    /// The time of a frame since the video's first one, in seconds.
    double secondsOf(const AVFrame& frame) const;
    /// The same of a packet that was handed out.
    double secondsOf(const AVPacket& packet) const;
    /// Whether a packet that was handed out is a picture of the whole, which has no time.
    bool isCover(const AVPacket& packet) const;
    /// Moves a packet that was handed out by `time`, in timeBase().
    void shift(AVPacket& packet, std::int64_t time) const;
    AVRational timeBase() const { return video().time_base; }
    AVRational frameRate() const;
    /// Whether frames follow each other at different intervals.
    bool variesRate() const;
    /// Width of a pixel over its height, or 0/1 where the file does not say.
    AVRational sampleAspect(const AVFrame& frame) const;
    Orientation orientation(const AVFrame& frame) const;
    /// How many frames there should be, or 0 where the file does not say.
    std::int64_t expectedFrames() const;

  private:
    Reader() = default;
    void openInput(const std::string& path);
    void findStreams();
    int decoderThreads(const AVCodec& codec) const;
    void openDecoder(const AVCodec* codec);
    void skipOtherVideo();
    void feedDecoder();
    /// The next packet of the video, null at the end; packets of other streams are set aside.
    PacketPtr readVideoPacket();
    void setAside(PacketPtr packet);
    void shiftBy(AVPacket& packet, std::int64_t time, AVRational base) const;
    void checkFrameEnd(const AVPacket* packet);
    /// Whether each packet is one frame, and those that are marked as keys need none before them.
    bool countsPackets() const;
    bool skipPackets(std::int64_t number);
    /// Goes to a key frame that is packet `most` or before it, where the index tells it.
    bool seekBefore(std::int64_t most);
    /// The number of a packet by the index.
    std::optional<std::int64_t> placeOf(const AVPacket& packet) const;
    /// Goes on with packets from number `key` on, a key frame's.
    bool startAt(std::int64_t key, std::deque<PacketPtr> packets);
    void dropOthersBefore(const AVPacket& key);
    /// The time of the first frame, as frames are handed out.
    std::int64_t videoStart() const;
    void checkFrame(const AVFrame& frame) const;
    void checkReadToEnd() const;
    void fixTimes(AVFrame& frame);
    void checkSize(int width, int height) const;
    /// Throws when FFmpeg has refused the size of a frame.
    void checkRefusedSize() const;
    [[noreturn]] void failDamaged(const std::string& how) const;

    std::string m_sPath;  ///< as messages name it
    FrameLimit m_limit;
    IoPtr m_pIo;  ///< outlives the input that reads through it
    InputPtr m_pInput;
    CodecPtr m_pDecoder;
    int m_nVideo = -1;
    bool m_bPicture = false;
    bool m_bPipe = false;
    std::deque<PacketPtr> m_packets;  ///< of other streams
    std::deque<PacketPtr> m_ahead;    ///< of the video, read but not decoded yet
    FramePtr m_pAgain;                ///< decoded, but not handed out yet, or null
    std::int64_t m_nPackets = 0;      ///< of the video that have been read
    LoggedErrors m_errorsAtStart;
    std::int64_t m_nFrames = 0;
    std::int64_t m_nShift = 0;  ///< added to all times, in AV_TIME_BASE units
    std::int64_t m_nNextTime = 0;
    std::int64_t m_nReadTo = 0;  ///< the byte behind the last packet of YUV4MPEG2
};

}  // namespace brushworks::media
