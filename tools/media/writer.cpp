// Sets up encoder and muxer, and feeds them.
#include "media/writer.h"

#include <string_view>

#include "media/stream_copy.h"

namespace brushworks::media {
namespace {

/// The time base for types and encoders that know one frame rate alone.
AVRational encoderBase(const OutputFormat& format, const VideoSettings& settings) {
    const bool even = format.evenTimes || settings.encoding.row.has(kEvenTimes);
    return even && settings.frameRate.num > 0 ? av_inv_q(settings.frameRate) : settings.timeBase;
}

AVFieldOrder fieldOrder(FieldOrder order) {
    switch (order) {
        case FieldOrder::TopFirst:
            return AV_FIELD_TT;
        case FieldOrder::BottomFirst:
            return AV_FIELD_BB;
        default:
            return AV_FIELD_PROGRESSIVE;
    }
}

bool isMov(const OutputFormat& format) {
    return std::string_view(format.muxer) == "mp4" || std::string_view(format.muxer) == "mov";
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
    openEncoder(format, settings);
    addVideoStream(settings, companions);
    addCompanions(format, companions);
    writeHead(format, url, failure);
}

void Writer::openEncoder(const OutputFormat& format, const VideoSettings& settings) {
    const AVCodec* codec = settings.encoding.codec;
    m_pEncoder = owned<CodecPtr>(avcodec_alloc_context3(codec));
    AVCodecContext& context = *m_pEncoder;
    const Raster& raster = settings.raster;
    const bool jpeg = codec->id == AV_CODEC_ID_MJPEG;
    context.width = raster.width;
    context.height = raster.height;
    context.pix_fmt = raster.format;
    context.time_base = encoderBase(format, settings);
    context.framerate = settings.frameRate;
    context.sample_aspect_ratio = settings.pixelAspect;
    context.colorspace = settings.tagMatrix ? raster.matrix : AVCOL_SPC_UNSPECIFIED;
    context.color_range = settings.tagRange || jpeg ? raster.range : AVCOL_RANGE_UNSPECIFIED;
    context.color_primaries = settings.primaries;
    context.color_trc = settings.transfer;
    context.chroma_sample_location = settings.chromaLocation;
    context.field_order = fieldOrder(settings.fields);
    context.thread_count = format.picture ? 1 : 0;
    if (settings.fields != FieldOrder::Progressive && settings.encoding.row.has(kFields)) {
        context.flags |= AV_CODEC_FLAG_INTERLACED_DCT | AV_CODEC_FLAG_INTERLACED_ME;
    }
    if ((m_pOutput->oformat->flags & AVFMT_GLOBALHEADER) != 0) {
        context.flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    Dictionary options;
    settings.encoding.apply(context, options);
    check(avcodec_open2(&context, codec, options.pointer()),
          std::string("cannot encode ") + format.extension + " with " + codec->name + " at " +
              std::to_string(raster.width) + "x" + std::to_string(raster.height));
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
    if (format.keepsChapters) copyChapters(*companions.input, *m_pOutput);
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
