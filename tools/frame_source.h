// The part of an input that is painted: its frames with their places, and what goes beside them.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>

#include "frame_painter.h"
#include "frame_range.h"
#include "media/reader.h"
#include "sequence.h"

namespace brushworks::tools {

/// 0 where the file does not say.
double framesPerSecond(const media::Reader& reader);

/// Frames in their order. [one thread at a time]
class FrameSource {
  public:
    virtual ~FrameSource() = default;

    virtual bool hasFrame() const = 0;
    /// The next frame, while there is one. Its time is that in the output.
    virtual NumberedFrame take() = 0;
    /// The packets of other streams that belong beside the frames taken so far, and were not taken
    /// yet, with their times in the output.
    virtual std::deque<media::PacketPtr> takePackets() = 0;
    /// How many frames there should be, 0 where that is not known.
    virtual std::int64_t expectedFrames() const = 0;
};

/// Those of a video. Looks one frame ahead, to know where the part ends.
class VideoSource : public FrameSource {
  public:
    /// `first` is frame `part.range.first`, which was read already, or null when there is none; in
    /// the output it has the time `start`, in the reader's time base.
    VideoSource(media::Reader& reader, media::FramePtr first, std::int64_t start, const Part& part);

    bool hasFrame() const override { return m_next.frame != nullptr; }
    NumberedFrame take() override;
    std::deque<media::PacketPtr> takePackets() override;
    std::int64_t expectedFrames() const override;

  private:
    NumberedFrame numbered(std::int64_t number, media::FramePtr frame) const;
    bool isBehind(const NumberedFrame& frame) const;
    void findEnd();
    bool belongs(const AVPacket& packet) const;
    void setTime(NumberedFrame& frame) const;

    media::Reader& m_reader;
    Part m_part;
    NumberedFrame m_next;
    std::int64_t m_nShift = 0;               ///< added to times, in the reader's time base
    double m_dBegin = 0;                     ///< of the part, in seconds of the video
    std::optional<double> m_end;             ///< likewise, once it is known
    std::deque<media::PacketPtr> m_packets;  ///< read, but not known to belong to the part yet
};

/// Pictures that whoever paints them reads, each on its own thread.
class SequenceSource : public FrameSource {
  public:
    SequenceSource(const Sequence& sequence, const Part& part);

    bool hasFrame() const override { return m_nNext <= m_nLast; }
    NumberedFrame take() override;
    std::deque<media::PacketPtr> takePackets() override { return {}; }
    std::int64_t expectedFrames() const override { return m_nLast - m_nFirst + 1; }

  private:
    Sequence m_sequence;
    AVRational m_rate;
    std::int64_t m_nFirst;
    std::int64_t m_nLast;
    std::int64_t m_nNext;
};

}  // namespace brushworks::tools
