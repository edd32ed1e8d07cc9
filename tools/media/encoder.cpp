// The table of encoders, and the choice among them.
#include "media/encoder.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <cmath>
#include <string_view>

#include "media/raster.h"

namespace brushworks::media {
namespace {

using enum QualityScale;

// x265 writes to the terminal unless told not to.
constexpr char kX265[] = "preset=medium,x265-params=log-level=none";
constexpr char kX265Lossless[] = "x265-params=log-level=none:lossless=1";

constexpr char kVp9[] = "b=0,deadline=good,cpu-used=3,row-mt=1";
constexpr char kAv1[] = "b=0,cpu-used=6,row-mt=1";

constexpr EncoderRow kEncoders[] = {
    {"libx264",
     "h264",
     {Crf, 48, 8, 70},
     "qp=0",
     "preset=medium",
     kFields | kWholeChroma,
     {115, 10}},
    {"libx264rgb", "h264rgb", {Crf, 48, 8, 70}, "qp=0", "preset=medium", 0, {115, 10}},
    {"libx265", "hevc", {Crf, 50, 10, 70}, kX265Lossless, kX265, kWholeChroma, {100, 5}},
    {"libvpx-vp9", "vp9", {Crf, 58, 18, 70}, "lossless=1", kVp9, 0, {80}},
    {"libaom-av1", "av1", {Crf, 58, 18, 70}, "aom-params=lossless=1", kAv1, 0, {120}},
    {"prores_ks", "prores", {Quantizer, 32, 2, 80}, nullptr, "", kFields, {20}},
    {"mpeg4", "mpeg4", {Quantizer, 31, 1, 93}, nullptr, "", kFields | kEvenTimes, {16}},
    {"mpeg2video", "mpeg2", {Quantizer, 31, 1, 93}, nullptr, "", kFields | kEvenTimes, {16}},
    {"mjpeg", "jpeg", {Quantizer, 31, 1, 97}, nullptr},
    {"libwebp", "webp", {Percent, 0, 100, 100}, "lossless=1"},
    {"ffv1", "ffv1", {}, "", "level=3", kFields, {100}},
    {"ffvhuff", "ffvhuff", {}, ""},
    {"huffyuv", "huffyuv", {}, ""},
    {"utvideo", "utvideo", {}, ""},
    {"qtrle", "animation", {}, ""},
    {"png", "png", {}, ""},
    {"tiff", "tiff", {}, "", "compression_algo=deflate"},
    {"ppm", "ppm", {}, ""},
    {"rawvideo", "raw", {}, "", "", kFields},
    {"wrapped_avframe", "y4m", {}, "", "", kFields},
    {"gif", "gif", {}, nullptr},
};

/// What the table says of an encoder, and a bare row for those that it leaves out.
EncoderRow rowOf(const AVCodec& codec) {
    for (const EncoderRow& row : kEncoders) {
        if (std::string_view(row.name) == codec.name) return row;
    }
    const AVCodecDescriptor* description = avcodec_descriptor_get(codec.id);
    const int kinds = description != nullptr ? description->props : 0;
    const bool always = (kinds & AV_CODEC_PROP_LOSSLESS) != 0 && (kinds & AV_CODEC_PROP_LOSSY) == 0;
    constexpr HeldFrames kUnknown = {100};
    return {codec.name, codec.name, {}, always ? "" : nullptr, "", 0, kUnknown};
}

const char* encoderName(const std::string& asked) {
    for (const EncoderRow& row : kEncoders) {
        if (asked == row.common) return row.name;
    }
    return asked.c_str();
}

/// Whether a name means anything, in this build or in another one.
bool isKnown(const std::string& name) {
    return avcodec_descriptor_get_by_name(name.c_str()) != nullptr ||
           std::ranges::any_of(kEncoders, [&](const EncoderRow& row) { return name == row.name; });
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
    // Whole frames are what pipes are written from, and nothing else.
    const bool pipe = std::string_view(format.encoder) == "wrapped_avframe";
    if (pipe || codec.id == AV_CODEC_ID_WRAPPED_AVFRAME) {
        return pipe && codec.id == AV_CODEC_ID_WRAPPED_AVFRAME;
    }
    return muxerTakes(format, codec.id) == 1;
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
    return row.quality.worst + (row.quality.best - row.quality.worst) * quality / kSteps;
}

Encoding chooseEncoding(const OutputFormat& format, const EncodingChoice& choice,
                        AVPixelFormat source) {
    const std::string name =
        choice.codec.empty() ? defaultEncoder(format, choice, source) : encoderName(choice.codec);
    const AVCodec* codec = avcodec_find_encoder_by_name(name.c_str());
    if (codec == nullptr) codec = avcodec_find_encoder_by_name(choice.codec.c_str());
    if (codec == nullptr || codec->type != AVMEDIA_TYPE_VIDEO) {
        const std::string asked = choice.codec.empty() ? name : choice.codec;
        const std::string fitting = "\"; " + fittingNames(format);
        if (!isKnown(name)) throw MediaUsageError("there is no codec \"" + asked + fitting);
        throw MediaError("this build of libavcodec has no encoder for \"" + asked + fitting);
    }
    if (!holds(format, *codec)) {
        throw MediaUsageError(std::string(".") + format.extension + " files cannot hold " +
                              codec->name + "; " + fittingNames(format));
    }
    Encoding encoding = {codec, rowOf(*codec), choice.quality, choice.lossless};
    const EncoderRow& row = encoding.row;
    if (choice.quality < 0) {
        encoding.quality = row.quality.usual;
        // A scale that reaches as far as lossless starts there.
        if (row.quality.scale == Percent) encoding.lossless = true;
    } else if (choice.lossless) {
        throw MediaUsageError("--lossless and --quality exclude each other");
    } else if (row.quality.scale == None) {
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
    // It learns the order of fields from the frames, but writes its head before them.
    const bool x264 = std::string_view(row.name) == "libx264";
    if (x264 && context.field_order == AV_FIELD_BB) options.set("x264-params", "bff=1");
    if (lossless && row.lossless != nullptr) {
        options.parse(row.lossless);
        return;
    }
    const double value = ownQuality(row, quality);
    if (row.quality.scale == Crf) options.set("crf", std::llround(value));
    if (row.quality.scale == Percent) options.set("quality", std::llround(value));
    if (row.quality.scale == Quantizer) {
        context.flags |= AV_CODEC_FLAG_QSCALE;
        context.global_quality = static_cast<int>(std::lround(value * FF_QP2LAMBDA));
    }
}

}  // namespace brushworks::media
