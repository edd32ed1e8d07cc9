// Chooses how a file type is encoded, and muxes.
#include "media/writer.h"

#include <string_view>

namespace brushworks::media {
namespace {

/// What makes each encoder give the look of its input at a reasonable size.
void setQuality(const AVCodec& encoder, AVCodecContext& context, Dictionary& options) {
    const std::string_view name = encoder.name;
    if (name == "libx264") {
        options.set("preset", "medium");
        options.set("crf", "20");
    } else if (name == "libvpx-vp9") {
        options.set("crf", "30");
        options.set("b", "0");
        options.set("deadline", "good");
        options.set("cpu-used", "3");
        options.set("row-mt", "1");
    } else if (name == "mjpeg") {
        context.flags |= AV_CODEC_FLAG_QSCALE;
        context.global_quality = 2 * FF_QP2LAMBDA;
    } else if (name == "libwebp") {
        options.set("lossless", "1");
    } else if (name == "tiff") {
        options.set("compression_algo", "deflate");
    }
}

bool isOdd(int number) {
    return number % 2 != 0;
}

}  // namespace

Raster outputRaster(const OutputFormat& format, const Raster& decoded, int width, int height) {
    const std::string_view encoder = format.encoder;
    if (encoder == "mjpeg") {
        return {AV_PIX_FMT_YUVJ444P, width, height, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_JPEG};
    }
    if (encoder == "libwebp") return bgraRaster(width, height);
    if (format.picture) {
        const bool alpha = format.keepAlpha && hasAlpha(decoded.format);
        return {alpha ? AV_PIX_FMT_RGBA : AV_PIX_FMT_RGB24, width, height, AVCOL_SPC_RGB,
                AVCOL_RANGE_JPEG};
    }
    // H.264 has no half colour samples; with whole ones every size is possible.
    const bool whole = encoder == "libx264" && (isOdd(width) || isOdd(height));
    Raster raster = {whole ? AV_PIX_FMT_YUV444P : AV_PIX_FMT_YUV420P, width, height, decoded.matrix,
                     decoded.range};
    if (raster.matrix == AVCOL_SPC_RGB) {
        const bool large = width >= 1280 || height > 576;
        raster.matrix = large ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
        raster.range = AVCOL_RANGE_MPEG;
    }
    return raster;
}

Writer::Writer(const std::string& path, const OutputFormat& format, const VideoSettings& settings,
               const std::vector<const AVStream*>& copied)
    : m_sPath(path) {
    const std::string failure = "cannot write the ." + std::string(format.extension) + " file";
    const std::string url = fileUrl(path);
    AVFormatContext* output = nullptr;
    check(avformat_alloc_output_context2(&output, nullptr, format.muxer, url.c_str()), failure);
    m_pOutput.reset(output);
    openEncoder(format, settings);
    addVideoStream(settings);
    for (const AVStream* stream : copied) addCopiedStream(*stream);
    av_dict_copy(&output->metadata, settings.metadata, 0);

    AVIOContext* io = nullptr;
    check(avio_open(&io, url.c_str(), AVIO_FLAG_WRITE), failure);
    m_pIo.reset(io);
    output->pb = io;
    Dictionary options;
    if (std::string_view(format.muxer) == "mp4" || std::string_view(format.muxer) == "mov") {
        options.set("movflags", "+faststart");
        // The same clock as the input's, so that no time is rounded.
        if (settings.timeBase.num == 1) {
            options.set("video_track_timescale", int64_t{settings.timeBase.den});
        }
    }
    check(avformat_write_header(output, options.pointer()), failure);
}

void Writer::openEncoder(const OutputFormat& format, const VideoSettings& settings) {
    const AVCodec* codec = avcodec_find_encoder_by_name(format.encoder);
    if (codec == nullptr) {
        throw MediaError(std::string("FFmpeg's libraries on this machine have no encoder ") +
                         format.encoder);
    }
    m_pEncoder = owned<CodecPtr>(avcodec_alloc_context3(codec));
    AVCodecContext& context = *m_pEncoder;
    const Raster& raster = settings.raster;
    context.width = raster.width;
    context.height = raster.height;
    context.pix_fmt = raster.format;
    context.time_base = settings.timeBase;
    context.framerate = settings.frameRate;
    context.sample_aspect_ratio = settings.pixelAspect;
    context.colorspace = settings.tagMatrix ? raster.matrix : AVCOL_SPC_UNSPECIFIED;
    context.color_range = settings.tagRange ? raster.range : AVCOL_RANGE_UNSPECIFIED;
    context.color_primaries = settings.primaries;
    context.color_trc = settings.transfer;
    context.thread_count = format.picture ? 1 : 0;
    if (settings.interlaced && std::string_view(codec->name) == "libx264") {
        context.flags |= AV_CODEC_FLAG_INTERLACED_DCT | AV_CODEC_FLAG_INTERLACED_ME;
    }
    if ((m_pOutput->oformat->flags & AVFMT_GLOBALHEADER) != 0) {
        context.flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    Dictionary options;
    setQuality(*codec, context, options);
    check(avcodec_open2(&context, codec, options.pointer()),
          std::string("cannot encode ") + format.extension + " of " + std::to_string(raster.width) +
              "x" + std::to_string(raster.height));
}

void Writer::addVideoStream(const VideoSettings& settings) {
    m_pVideo = avformat_new_stream(m_pOutput.get(), nullptr);
    if (m_pVideo == nullptr) throw std::bad_alloc();
    check(avcodec_parameters_from_context(m_pVideo->codecpar, m_pEncoder.get()),
          "cannot describe the video");
    m_pVideo->time_base = settings.timeBase;
    m_pVideo->avg_frame_rate = settings.frameRate;
    m_pVideo->sample_aspect_ratio = settings.pixelAspect;
    av_dict_copy(&m_pVideo->metadata, settings.streamMetadata, 0);
}

void Writer::addCopiedStream(const AVStream& source) {
    const AVCodecParameters& codec = *source.codecpar;
    if (avformat_query_codec(m_pOutput->oformat, codec.codec_id, FF_COMPLIANCE_NORMAL) == 0) {
        throw MediaError(std::string("the type of the output cannot hold ") +
                         avcodec_get_name(codec.codec_id) + " sound as it is; .mkv can");
    }
    AVStream* copy = avformat_new_stream(m_pOutput.get(), nullptr);
    if (copy == nullptr) throw std::bad_alloc();
    check(avcodec_parameters_copy(copy->codecpar, &codec), "cannot copy the sound");
    copy->codecpar->codec_tag = 0;  // the number belongs to the input's type
    copy->time_base = source.time_base;
    copy->disposition = source.disposition;
    av_dict_copy(&copy->metadata, source.metadata, 0);
    m_copies[source.index] = copy;
    m_inputBases[source.index] = source.time_base;
}

void Writer::writeFrame(AVFrame& frame) {
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
    const int input = packet.stream_index;
    AVStream* copy = m_copies.at(input);
    av_packet_rescale_ts(&packet, m_inputBases.at(input), copy->time_base);
    packet.stream_index = copy->index;
    packet.pos = -1;
    check(av_interleaved_write_frame(m_pOutput.get(), &packet), "cannot write the sound");
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
