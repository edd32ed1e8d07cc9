// Sets up the muxer, and feeds encoder and muxer.
#include "media/writer.h"

#include <string_view>

#include "media/encoder_setup.h"
#include "media/stream_copy.h"

namespace brushworks::media {
namespace {

bool isMov(const OutputFormat& format) {
    return std::string_view(format.muxer) == "mp4" || std::string_view(format.muxer) == "mov";
}

bool isGif(const AVFormatContext& output) {
    return std::string_view(output.oformat->name) == "gif";
}

}  // namespace

Writer::Writer(const std::string& path, const OutputFormat& format, const VideoSettings& settings,
               const Companions& companions)
    : m_timeBase(settings.timeBase) {
    const bool pipe = path == "-";
    const std::string failure =
        pipe ? "cannot write to standard output"
             : "cannot write the ." + std::string(format.extension) + " file";
    const std::string url = pipe ? "pipe:1" : fileUrl(path);
    AVFormatContext* output = nullptr;
    check(avformat_alloc_output_context2(&output, nullptr, format.muxer, url.c_str()), failure);
    m_pOutput.reset(output);
    // Deep YUV4MPEG2 is common, but in no standard.
    output->strict_std_compliance = FF_COMPLIANCE_UNOFFICIAL;
    const bool globalHeader = (output->oformat->flags & AVFMT_GLOBALHEADER) != 0;
    m_pEncoder = openEncoder(format, settings, globalHeader);
    addVideoStream(settings, companions);
    addCompanions(format, companions);
    writeHead(format, url, failure);
}

/// FFmpeg 5's muxer of GIF files lets go of its last packet with the trailer alone, also where
/// nothing is whole.
Writer::~Writer() {
    const bool finished = m_pOutput->pb == nullptr;
    if (!finished && isGif(*m_pOutput)) av_write_trailer(m_pOutput.get());
}

void Writer::addVideoStream(const VideoSettings& settings, const Companions& companions) {
    m_pVideo = avformat_new_stream(m_pOutput.get(), nullptr);
    if (m_pVideo == nullptr) throw std::bad_alloc();
    check(avcodec_parameters_from_context(m_pVideo->codecpar, m_pEncoder.get()),
          "cannot describe the video");
    m_pVideo->time_base = m_pEncoder->time_base;
    m_pVideo->avg_frame_rate = settings.frameRate;
    m_pVideo->sample_aspect_ratio = settings.pixelAspect;
    if (companions.video != nullptr) {
        describeVideo(*companions.video, *m_pVideo, companions.keepTurn);
    }
}

void Writer::addCompanions(const OutputFormat& format, const Companions& companions) {
    for (const AVStream* source : companions.streams) {
        m_copies[source->index] = copyStream(*source, *m_pOutput);
        m_inputBases[source->index] = source->time_base;
    }
    if (companions.input == nullptr) return;
    av_dict_copy(&m_pOutput->metadata, companions.input->metadata, 0);
    if (format.keepsChapters && companions.keepChapters)
        copyChapters(*companions.input, *m_pOutput);
}

void Writer::writeHead(const OutputFormat& format, const std::string& url,
                       const std::string& failure) {
    AVIOContext* io = nullptr;
    check(avio_open(&io, url.c_str(), AVIO_FLAG_WRITE), failure);
    m_pIo.reset(io);
    m_pOutput->pb = io;
    Dictionary options;
    if (isMov(format)) {
        options.set("movflags", "+faststart");
        // The clock of the frames, so that no time is rounded.
        options.set("video_track_timescale", int64_t{m_pEncoder->time_base.den});
    }
    check(avformat_write_header(m_pOutput.get(), options.pointer()), failure);
}

void Writer::writeFrame(AVFrame& frame) {
    frame.pts = av_rescale_q(frame.pts, m_timeBase, m_pEncoder->time_base);
    frame.pkt_duration = av_rescale_q(frame.pkt_duration, m_timeBase, m_pEncoder->time_base);
    // Encoders insist on growing times; a few files repeat one.
    if (m_nLastTime != AV_NOPTS_VALUE && frame.pts <= m_nLastTime) frame.pts = m_nLastTime + 1;
    m_nLastTime = frame.pts;
    m_durations[frame.pts] = frame.pkt_duration;
    frame.quality = m_pEncoder->global_quality;
    check(avcodec_send_frame(m_pEncoder.get(), &frame), "cannot encode a frame");
    drainEncoder();
}

void Writer::drainEncoder() {
    const PacketPtr packet = newPacket();
    for (;;) {
        const int result = avcodec_receive_packet(m_pEncoder.get(), packet.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) return;
        check(result, "cannot encode a frame");
        if (const auto found = m_durations.find(packet->pts); found != m_durations.end()) {
            packet->duration = found->second;
            m_durations.erase(found);
        }
        packet->stream_index = m_pVideo->index;
        av_packet_rescale_ts(packet.get(), m_pEncoder->time_base, m_pVideo->time_base);
        check(av_interleaved_write_frame(m_pOutput.get(), packet.get()), "cannot write");
    }
}

void Writer::writePacket(AVPacket& packet) {
    const auto found = m_copies.find(packet.stream_index);
    if (found == m_copies.end()) return;
    AVStream* copy = found->second;
    av_packet_rescale_ts(&packet, m_inputBases.at(packet.stream_index), copy->time_base);
    packet.stream_index = copy->index;
    packet.pos = -1;
    check(av_interleaved_write_frame(m_pOutput.get(), &packet), "cannot write a copied stream");
}

void Writer::finish() {
    check(avcodec_send_frame(m_pEncoder.get(), nullptr), "cannot encode the last frames");
    drainEncoder();
    check(av_write_trailer(m_pOutput.get()), "cannot write");
    avio_flush(m_pIo.get());
    check(m_pIo->error, "cannot write");
    AVIOContext* io = m_pIo.release();
    m_pOutput->pb = nullptr;
    check(avio_closep(&io), "cannot write");
}

}  // namespace brushworks::media
