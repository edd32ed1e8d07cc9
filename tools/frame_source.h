// The part of an input that is painted: its frames with their places, and what goes beside them.
#pragma once

#include <cstdint>

#include "frame_painter.h"
#include "media/reader.h"
#include "media/writer.h"

namespace brushworks::tools {

/// 0 where the file does not say.
double framesPerSecond(const media::Reader& reader);

/// [one thread at a time]
class FrameSource {
  public:
    /// Starts with `first`, which was read already, and ends `seconds` later; 0 for the whole.
    FrameSource(media::Reader& reader, media::FramePtr first, double seconds);

    bool hasFrame() const { return m_next.frame != nullptr; }
    /// The next frame, while there is one.
    NumberedFrame take();
    /// Copies the packets of other streams that have been read by the way.
    void copyPackets(media::Writer& writer);
    /// How many frames there should be, 0 where that is not known.
    std::int64_t expectedFrames() const;

  private:
    NumberedFrame numbered(std::int64_t number, media::FramePtr frame) const;
    bool isBehind(double seconds) const { return m_dSeconds > 0 && seconds >= m_dSeconds; }

    media::Reader& m_reader;
    double m_dSeconds;
    NumberedFrame m_next;
};

}  // namespace brushworks::tools
