// Frames keep the number and the seconds that they have in the whole, by which they are painted;
// times in the output begin where those of the whole would.
#include "frame_source.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

namespace brushworks::tools {

double framesPerSecond(const media::Reader& reader) {
    const AVRational rate = reader.frameRate();
    return rate.num > 0 ? av_q2d(rate) : 0;
}

VideoSource::VideoSource(media::Reader& reader, media::FramePtr first, std::int64_t start,
                         const Part& part)
    : m_reader(reader), m_part(part), m_next(numbered(part.range.first, std::move(first))) {
    if (!m_next.frame) return;
    m_nShift = start - m_next.frame->pts;
    m_dBegin = m_reader.secondsOf(*m_next.frame);
}

NumberedFrame VideoSource::take() {
    NumberedFrame frame = std::move(m_next);
    m_next = numbered(frame.number + 1, m_reader.next());
    if (m_next.frame && isBehind(m_next)) findEnd();
    setTime(frame);
    return frame;
}

bool VideoSource::isBehind(const NumberedFrame& frame) const {
    const double sinceBegin = m_reader.secondsOf(*frame.frame) - m_dBegin;
    return frame.number > m_part.range.last || (m_part.seconds > 0 && sinceBegin >= m_part.seconds);
}

void VideoSource::findEnd() {
    m_end = m_reader.secondsOf(*m_next.frame);
    m_next.frame.reset();
    // Sound that belongs to the last frames may come behind them in the file.
    m_reader.readOthersTo(*m_end);
}

void VideoSource::setTime(NumberedFrame& frame) const {
    if (m_part.rate.num > 0) {
        frame.frame->pts = frame.number - m_part.range.first;
        frame.frame->pkt_duration = 1;
    } else {
        frame.frame->pts += m_nShift;
    }
}

bool VideoSource::belongs(const AVPacket& packet) const {
    if (m_part.range.first == 0 && !m_end) return true;
    if (m_reader.isCover(packet)) return true;
    const double seconds = m_reader.secondsOf(packet);
    const bool early = m_part.range.first > 0 && seconds < m_dBegin;
    return !early && !(m_end && seconds >= *m_end);
}

std::deque<media::PacketPtr> VideoSource::takePackets() {
    for (media::PacketPtr& packet : m_reader.takePackets()) m_packets.push_back(std::move(packet));
    const bool endKnown = m_end || (m_part.range.last == FrameRange::kEnd && m_part.seconds <= 0);
    std::deque<media::PacketPtr> packets;
    while (!m_packets.empty()) {
        media::PacketPtr& packet = m_packets.front();
        const bool cover = m_reader.isCover(*packet);
        // Packets may be read ahead of the frames, and so of the end.
        const bool ahead = !endKnown && hasFrame() && !cover &&
                           m_reader.secondsOf(*packet) >= m_reader.secondsOf(*m_next.frame);
        if (ahead) break;
        if (belongs(*packet)) {
            if (!cover) m_reader.shift(*packet, m_nShift);
            packets.push_back(std::move(packet));
        }
        m_packets.pop_front();
    }
    return packets;
}

std::int64_t VideoSource::expectedFrames() const {
    const std::int64_t all = m_reader.expectedFrames();
    if (all <= 0) return 0;
    const std::int64_t last = std::min(m_part.range.last, all - 1);
    const std::int64_t ranged = std::max<std::int64_t>(last - m_part.range.first + 1, 0);
    const std::int64_t timed = std::llround(m_part.seconds * framesPerSecond(m_reader));
    return timed > 0 ? std::min(ranged, timed) : ranged;
}

NumberedFrame VideoSource::numbered(std::int64_t number, media::FramePtr frame) const {
    double seconds = 0;
    if (m_part.rate.num > 0) {
        seconds = static_cast<double>(number) / av_q2d(m_part.rate);
    } else if (frame) {
        seconds = m_reader.secondsOf(*frame);
    }
    return {number, seconds, std::move(frame)};
}

SequenceSource::SequenceSource(const Sequence& sequence, const Part& part)
    : m_sequence(sequence),
      m_rate(part.rate),
      m_nFirst(part.range.first),
      m_nLast(std::min(part.range.last, sequence.count - 1)),
      m_nNext(m_nFirst) {
    if (m_nFirst >= sequence.count) {
        throw std::runtime_error("the sequence has " + std::to_string(sequence.count) +
                                 " pictures, counted from 0; frame " + std::to_string(m_nFirst) +
                                 " is not among them");
    }
    if (part.seconds <= 0) return;
    const std::int64_t timed = std::llround(std::ceil(part.seconds * av_q2d(m_rate)));
    m_nLast = std::min(m_nLast, m_nFirst + timed - 1);
}

NumberedFrame SequenceSource::take() {
    const std::int64_t number = m_nNext++;
    const double seconds = static_cast<double>(number) / av_q2d(m_rate);
    return {number, seconds, nullptr, m_sequence.at(number), number - m_nFirst};
}

}  // namespace brushworks::tools
