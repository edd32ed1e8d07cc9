// Fills in a codec context from the settings.
#include "media/encoder_setup.h"

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

}  // namespace

CodecPtr openEncoder(const OutputFormat& format, const VideoSettings& settings, bool globalHeader) {
    const AVCodec* codec = settings.encoding.codec;
    CodecPtr opened = owned<CodecPtr>(avcodec_alloc_context3(codec));
    AVCodecContext& context = *opened;
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
    if (globalHeader) context.flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    Dictionary options;
    settings.encoding.apply(context, options);
    check(avcodec_open2(&context, codec, options.pointer()),
          std::string("cannot encode ") + format.extension + " with " + codec->name + " at " +
              std::to_string(raster.width) + "x" + std::to_string(raster.height));
    return opened;
}

}  // namespace brushworks::media
