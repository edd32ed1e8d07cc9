// Looks one frame ahead, to know where the end is.
#include "frame_source.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace brushworks::tools {

double framesPerSecond(const media::Reader& reader) {
    const AVRational rate = reader.frameRate();
    return rate.num > 0 ? av_q2d(rate) : 0;
}

FrameSource::FrameSource(media::Reader& reader, media::FramePtr first, double seconds)
    : m_reader(reader), m_dSeconds(seconds), m_next(numbered(0, std::move(first))) {}

NumberedFrame FrameSource::take() {
    NumberedFrame frame = std::move(m_next);
    m_next = numbered(frame.number + 1, m_reader.next());
    if (m_next.frame && isBehind(m_next.seconds)) m_next.frame.reset();
    return frame;
}

void FrameSource::copyPackets(media::Writer& writer) {
    for (const media::PacketPtr& packet : m_reader.takePackets()) {
        if (!isBehind(m_reader.secondsOf(*packet))) writer.writePacket(*packet);
    }
}

std::int64_t FrameSource::expectedFrames() const {
    const std::int64_t all = m_reader.expectedFrames();
    const std::int64_t part = std::llround(m_dSeconds * framesPerSecond(m_reader));
    return part > 0 && all > 0 ? std::min(all, part) : all;
}

NumberedFrame FrameSource::numbered(std::int64_t number, media::FramePtr frame) const {
    const double seconds = frame ? m_reader.secondsOf(*frame) : 0;
    return {number, seconds, std::move(frame)};
}

}  // namespace brushworks::tools
