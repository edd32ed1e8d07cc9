// How a reader comes to a frame in the middle without decoding all that lies before it: by the
// file's index where it lists every frame, else by counting packets; then from a key frame on.
#include <deque>
#include <optional>
#include <string_view>

#include "media/reader.h"

namespace brushworks::media {
namespace {

/// Frames that follow a key frame in the file may be shown before it. More than coders allow.
constexpr std::int64_t kReordered = 32;

bool needsNoOther(AVCodecID codec) {
    const AVCodecDescriptor* description = avcodec_descriptor_get(codec);
    return description != nullptr && (description->props & AV_CODEC_PROP_INTRA_ONLY) != 0;
}

}  // namespace

/// Whether each packet is one frame, and those that are marked as keys need none before them.
bool Reader::countsPackets() const {
    const std::string_view type = m_pInput->iformat->name;
    if (!type.starts_with("mov") && !type.starts_with("matroska") && type != "yuv4mpegpipe") {
        return false;
    }
    const AVCodecID codec = m_pDecoder->codec_id;
    return codec == AV_CODEC_ID_H264 || codec == AV_CODEC_ID_HEVC || codec == AV_CODEC_ID_VP9 ||
           codec == AV_CODEC_ID_AV1 || codec == AV_CODEC_ID_FFV1 || needsNoOther(codec);
}

bool Reader::skipTo(std::int64_t number) {
    if (countsPackets()) {
        try {
            if (!skipPackets(number)) return false;
        } catch (const MediaError&) {
            // Without the frames before it a key frame may not be enough after all.
            return false;
        }
    }
    while (m_nFrames < number) {
        if (!next()) return true;
    }
    return m_nFrames == number;
}

bool Reader::skipPackets(std::int64_t number) {
    const std::int64_t most = number - kReordered;
    if (most < m_nPackets) return true;
    const bool sought = seekBefore(most);
    std::optional<std::int64_t> key;
    std::deque<PacketPtr> packets;  // from there on
    // So many behind the key frame that all that is shown before it is among them.
    while (m_nPackets <= most || (key && packets.size() <= static_cast<std::size_t>(kReordered))) {
        PacketPtr packet = readVideoPacket();
        if (!packet) break;
        if (sought && !key) {
            const std::optional<std::int64_t> place = placeOf(*packet);
            if (!place) return false;
            m_nPackets = *place + 1;
        }
        const std::int64_t index = m_nPackets - 1;
        if ((packet->flags & AV_PKT_FLAG_KEY) != 0 && index <= most) {
            packets.clear();
            key = index;
            dropOthersBefore(*packet);
        }
        packets.push_back(std::move(packet));
        if (sought && !key) return false;
    }
    if (key) return startAt(*key, std::move(packets));
    m_ahead = std::move(packets);
    return true;
}

bool Reader::seekBefore(std::int64_t most) {
    AVStream* stream = m_pInput->streams[m_nVideo];
    const std::string_view type = m_pInput->iformat->name;
    const int count = avformat_index_get_entries_count(stream);
    if (!type.starts_with("mov") || count != stream->nb_frames) return false;
    const AVIndexEntry* best = nullptr;
    for (int i = 0; i < count; ++i) {
        const AVIndexEntry* entry = avformat_index_get_entry(stream, i);
        if ((entry->flags & AVINDEX_DISCARD_FRAME) != 0) return false;
        const bool key = (entry->flags & AVINDEX_KEYFRAME) != 0;
        if (key && i >= m_nPackets && i <= most) best = entry;
    }
    if (best == nullptr) return false;
    const int flags = AVSEEK_FLAG_BACKWARD;
    if (av_seek_frame(m_pInput.get(), m_nVideo, best->timestamp, flags) < 0) return false;
    // They come again from the new place on; covers come once.
    std::erase_if(m_packets, [&](const PacketPtr& packet) { return !isCover(*packet); });
    return true;
}

std::optional<std::int64_t> Reader::placeOf(const AVPacket& packet) const {
    AVStream* stream = m_pInput->streams[m_nVideo];
    const int count = avformat_index_get_entries_count(stream);
    for (int i = 0; i < count; ++i) {
        if (avformat_index_get_entry(stream, i)->pos == packet.pos) return i;
    }
    return std::nullopt;
}

bool Reader::startAt(std::int64_t key, std::deque<PacketPtr> packets) {
    const std::int64_t time = packets.front()->pts;
    std::int64_t shownBefore = 0;
    for (const PacketPtr& packet : packets) {
        if (packet->pts == AV_NOPTS_VALUE) return false;
        if (packet->pts < time) ++shownBefore;
    }
    avcodec_flush_buffers(m_pDecoder.get());
    m_ahead = std::move(packets);
    FramePtr frame = next();
    // These lack what they depend on.
    while (frame && frame->pts < time) frame = next();
    if (!frame || frame->pts != time) return false;
    m_nFrames = key + shownBefore;
    m_pAgain = std::move(frame);
    return true;
}

void Reader::dropOthersBefore(const AVPacket& key) {
    const double seconds = secondsOf(key);
    std::erase_if(m_packets, [&](const PacketPtr& packet) {
        return !isCover(*packet) && secondsOf(*packet) < seconds;
    });
}

void Reader::readOthersTo(double seconds) {
    // Muxers let streams lag behind each other by so much, and seldom more.
    constexpr double kLag = 2;
    while (const PacketPtr packet = readVideoPacket()) {
        if (packet->dts != AV_NOPTS_VALUE && secondsOf(*packet) > seconds + kLag) return;
    }
}

}  // namespace brushworks::media
