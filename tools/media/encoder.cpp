// The table of encoders, and the choice among them.
#include "media/encoder.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <cmath>
#include <string_view>

#include "media/raster.h"

namespace brushworks::media {
namespace {

using enum QualityScale;

// x265 writes to the terminal unless told not to.
constexpr EncoderRow kEncoders[] = {
    {.name = "libx264",
     .common = "h264",
     .scale = Crf,
     .worst = 48,
     .best = 8,
     .usual = 70,
     .lossless = "qp=0",
     .options = "preset=medium",
     .fields = true,
     .wholeChroma = true},
    {.name = "libx264rgb",
     .common = "h264rgb",
     .scale = Crf,
     .worst = 48,
     .best = 8,
     .usual = 70,
     .lossless = "qp=0",
     .options = "preset=medium"},
    {.name = "libx265",
     .common = "hevc",
     .scale = Crf,
     .worst = 50,
     .best = 10,
     .usual = 70,
     .lossless = "x265-params=log-level=none:lossless=1",
     .options = "preset=medium,x265-params=log-level=none",
     .wholeChroma = true},
    {.name = "libvpx-vp9",
     .common = "vp9",
     .scale = Crf,
     .worst = 58,
     .best = 18,
     .usual = 70,
     .lossless = "lossless=1",
     .options = "b=0,deadline=good,cpu-used=3,row-mt=1"},
    {.name = "libaom-av1",
     .common = "av1",
     .scale = Crf,
     .worst = 58,
     .best = 18,
     .usual = 70,
     .lossless = "aom-params=lossless=1",
     .options = "b=0,cpu-used=6,row-mt=1"},
    {.name = "prores_ks",
     .common = "prores",
     .scale = Quantizer,
     .worst = 32,
     .best = 2,
     .usual = 80,
     .fields = true},
    {.name = "mpeg4",
     .common = "mpeg4",
     .scale = Quantizer,
     .worst = 31,
     .best = 1,
     .usual = 93,
     .fields = true,
     .evenTimes = true},
    {.name = "mpeg2video",
     .common = "mpeg2",
     .scale = Quantizer,
     .worst = 31,
     .best = 1,
     .usual = 93,
     .fields = true,
     .evenTimes = true},
    {.name = "mjpeg", .common = "jpeg", .scale = Quantizer, .worst = 31, .best = 1, .usual = 97},
    {.name = "libwebp",
     .common = "webp",
     .scale = Percent,
     .worst = 0,
     .best = 100,
     .usual = 100,
     .lossless = "lossless=1"},
    {.name = "ffv1", .common = "ffv1", .lossless = "", .options = "level=3"},
    {.name = "ffvhuff", .common = "ffvhuff", .lossless = ""},
    {.name = "huffyuv", .common = "huffyuv", .lossless = ""},
    {.name = "utvideo", .common = "utvideo", .lossless = ""},
    {.name = "qtrle", .common = "animation", .lossless = ""},
    {.name = "png", .common = "png", .lossless = ""},
    {.name = "tiff", .common = "tiff", .lossless = "", .options = "compression_algo=deflate"},
    {.name = "ppm", .common = "ppm", .lossless = ""},
    {.name = "rawvideo", .common = "raw", .lossless = ""},
    {.name = "wrapped_avframe", .common = "y4m", .lossless = ""},
    {.name = "gif", .common = "gif"},
};

/// What the table says of an encoder, and a bare row for those that it leaves out.
EncoderRow rowOf(const AVCodec& codec) {
    for (const EncoderRow& row : kEncoders) {
        if (std::string_view(row.name) == codec.name) return row;
    }
    const AVCodecDescriptor* description = avcodec_descriptor_get(codec.id);
    const int kinds = description != nullptr ? description->props : 0;
    const bool always = (kinds & AV_CODEC_PROP_LOSSLESS) != 0 && (kinds & AV_CODEC_PROP_LOSSY) == 0;
    return {.name = codec.name, .common = codec.name, .lossless = always ? "" : nullptr};
}

const char* encoderName(const std::string& asked) {
    for (const EncoderRow& row : kEncoders) {
        if (asked == row.common) return row.name;
    }
    return asked.c_str();
}

std::string fittingNames(const OutputFormat& format) {
    std::string names;
    for (const EncoderRow* row : encodersFor(format)) {
        names.append(names.empty() ? "" : ", ").append(row->name);
    }
    return std::string(".") + format.extension + " files can have: " + names;
}

bool holds(const OutputFormat& format, const AVCodec& codec) {
    // The muxer of pictures holds anything; the types are told apart by their encoders.
    if (format.picture) return std::string_view(format.encoder) == codec.name;
    // These muxers have one kind of content, and do not say so.
    if (format.evenTimes && std::string_view(format.encoder) == "wrapped_avframe") {
        return codec.id == AV_CODEC_ID_WRAPPED_AVFRAME;
    }
    if (codec.id == AV_CODEC_ID_WRAPPED_AVFRAME) return false;
    const AVOutputFormat* muxer = av_guess_format(format.muxer, nullptr, nullptr);
    return muxer != nullptr && avformat_query_codec(muxer, codec.id, FF_COMPLIANCE_NORMAL) == 1;
}

const char* defaultEncoder(const OutputFormat& format, const EncodingChoice& choice,
                           AVPixelFormat source) {
    if (choice.lossless) {
        const char* name = isYuv(source) ? format.losslessYuv : format.losslessRgb;
        // A type without room for alpha loses it, which is no lossless output any more.
        if (name != nullptr) return name;
        throw MediaUsageError(std::string(".") + format.extension +
                              " files cannot be lossless; of pictures .png can, of videos .mkv");
    }
    return hasAlpha(source) && format.alphaEncoder != nullptr ? format.alphaEncoder
                                                              : format.encoder;
}

}  // namespace

std::span<const EncoderRow> encoderRows() {
    return kEncoders;
}

std::vector<const EncoderRow*> encodersFor(const OutputFormat& format) {
    std::vector<const EncoderRow*> rows;
    for (const EncoderRow& row : kEncoders) {
        const AVCodec* codec = avcodec_find_encoder_by_name(row.name);
        if (codec != nullptr && holds(format, *codec)) rows.push_back(&row);
    }
    return rows;
}

double ownQuality(const EncoderRow& row, int quality) {
    constexpr double kSteps = 100;
    return row.worst + (row.best - row.worst) * quality / kSteps;
}

Encoding chooseEncoding(const OutputFormat& format, const EncodingChoice& choice,
                        AVPixelFormat source) {
    const std::string name =
        choice.codec.empty() ? defaultEncoder(format, choice, source) : encoderName(choice.codec);
    const AVCodec* codec = avcodec_find_encoder_by_name(name.c_str());
    if (codec == nullptr) codec = avcodec_find_encoder_by_name(choice.codec.c_str());
    if (codec == nullptr || codec->type != AVMEDIA_TYPE_VIDEO) {
        throw MediaError("this build of libavcodec has no encoder for \"" +
                         (choice.codec.empty() ? name : choice.codec) + "\"; " +
                         fittingNames(format));
    }
    if (!holds(format, *codec)) {
        throw MediaUsageError(std::string(".") + format.extension + " files cannot hold " +
                              codec->name + "; " + fittingNames(format));
    }
    Encoding encoding = {codec, rowOf(*codec), choice.quality, choice.lossless};
    const EncoderRow& row = encoding.row;
    if (choice.quality < 0) {
        encoding.quality = row.usual;
        // A scale that reaches as far as lossless starts there.
        if (row.scale == Percent) encoding.lossless = true;
    } else if (choice.lossless) {
        throw MediaUsageError("--lossless and --quality exclude each other");
    } else if (row.scale == None) {
        throw MediaUsageError(name + " has no scale of quality");
    }
    if (choice.lossless && row.lossless == nullptr) {
        throw MediaUsageError(name + " cannot be lossless; " + std::string(".") + format.extension +
                              " without --codec chooses one that can");
    }
    return encoding;
}

void Encoding::apply(AVCodecContext& context, Dictionary& options) const {
    options.parse(row.options);
    if (lossless && row.lossless != nullptr) {
        options.parse(row.lossless);
        return;
    }
    const double value = ownQuality(row, quality);
    if (row.scale == Crf) options.set("crf", std::llround(value));
    if (row.scale == Percent) options.set("quality", std::llround(value));
    if (row.scale == Quantizer) {
        context.flags |= AV_CODEC_FLAG_QSCALE;
        context.global_quality = static_cast<int>(std::lround(value * FF_QP2LAMBDA));
    }
}

}  // namespace brushworks::media
