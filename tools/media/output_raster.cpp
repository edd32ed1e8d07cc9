// Matches what a source has with what an encoder takes.
#include "media/output_raster.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <string_view>
#include <vector>

namespace brushworks::media {
namespace {

constexpr int kByte = 8;

// What a pipe of YUV4MPEG2 may carry; its encoder takes anything.
constexpr AVPixelFormat kPipeFormats[] = {
    AV_PIX_FMT_YUV420P,   AV_PIX_FMT_YUV422P,   AV_PIX_FMT_YUV444P,   AV_PIX_FMT_YUV411P,
    AV_PIX_FMT_YUV420P9,  AV_PIX_FMT_YUV422P9,  AV_PIX_FMT_YUV444P9,  AV_PIX_FMT_YUV420P10,
    AV_PIX_FMT_YUV422P10, AV_PIX_FMT_YUV444P10, AV_PIX_FMT_YUV420P12, AV_PIX_FMT_YUV422P12,
    AV_PIX_FMT_YUV444P12, AV_PIX_FMT_YUV420P14, AV_PIX_FMT_YUV422P14, AV_PIX_FMT_YUV444P14,
    AV_PIX_FMT_YUV420P16, AV_PIX_FMT_YUV422P16, AV_PIX_FMT_YUV444P16,
};

/// The formats that the encoder takes; empty for any.
std::vector<AVPixelFormat> formatsOf(const AVCodec& codec) {
    if (codec.id == AV_CODEC_ID_WRAPPED_AVFRAME) {
        return {std::begin(kPipeFormats), std::end(kPipeFormats)};
    }
    // Its fixed palettes of 8 and 16 colours are no match for chosen ones.
    if (codec.id == AV_CODEC_ID_GIF) return {AV_PIX_FMT_PAL8};
    std::vector<AVPixelFormat> formats;
    for (const AVPixelFormat* format = codec.pix_fmts;
         format != nullptr && *format != AV_PIX_FMT_NONE; ++format) {
        formats.push_back(*format);
    }
    return formats;
}

/// Red, green and blue in whole pixels, as deep as the source and with its alpha.
AVPixelFormat packedRgb(AVPixelFormat source) {
    const bool deep = depthOf(source) > kByte && source != AV_PIX_FMT_PAL8;
    if (hasAlpha(source)) return deep ? AV_PIX_FMT_RGBA64 : AV_PIX_FMT_RGBA;
    return deep ? AV_PIX_FMT_RGB48 : AV_PIX_FMT_RGB24;
}

/// What a source of red, green and blue, or grey, becomes where it is not kept so.
AVPixelFormat smallYuv(AVPixelFormat source) {
    const int depth = source == AV_PIX_FMT_PAL8 ? kByte : depthOf(source);
    if (hasAlpha(source)) return depth > kByte ? AV_PIX_FMT_YUVA420P10 : AV_PIX_FMT_YUVA420P;
    if (depth <= kByte) return AV_PIX_FMT_YUV420P;
    return depth <= 10 ? AV_PIX_FMT_YUV420P10 : AV_PIX_FMT_YUV420P12;
}

AVPixelFormat wanted(const Encoding& encoding, const Raster& decoded) {
    const AVPixelFormat source = unmarked(decoded.format);
    const std::string_view name = encoding.codec->name;
    if (name == "mjpeg") return AV_PIX_FMT_YUV444P;
    if (name == "libwebp" && !encoding.lossless) {
        return hasAlpha(source) ? AV_PIX_FMT_YUVA420P : AV_PIX_FMT_YUV420P;
    }
    const AVCodecID id = encoding.codec->id;
    const bool picture = id == AV_CODEC_ID_PNG || id == AV_CODEC_ID_TIFF || id == AV_CODEC_ID_PPM ||
                         id == AV_CODEC_ID_WEBP || id == AV_CODEC_ID_GIF;
    if (picture) return packedRgb(source);
    if (isYuv(source)) return source;
    const bool exact =
        encoding.lossless || (encoding.row.lossless != nullptr && *encoding.row.lossless == '\0');
    const bool pipe = id == AV_CODEC_ID_WRAPPED_AVFRAME;
    if (!exact || pipe) return smallYuv(source);
    const bool grey = av_pix_fmt_desc_get(source)->nb_components < 3;
    // Painted greys may be coloured.
    return grey || source == AV_PIX_FMT_PAL8 ? packedRgb(source) : source;
}

AVPixelFormat nearest(const std::vector<AVPixelFormat>& formats, AVPixelFormat wish) {
    if (formats.empty() || std::find(formats.begin(), formats.end(), wish) != formats.end()) {
        return wish;
    }
    std::vector<AVPixelFormat> list = formats;
    list.push_back(AV_PIX_FMT_NONE);
    return avcodec_find_best_pix_fmt_of_list(list.data(), wish, hasAlpha(wish), nullptr);
}

/// The format with a colour sample for every pixel.
AVPixelFormat withWholeChroma(AVPixelFormat format) {
    const int depth = depthOf(format);
    if (depth <= kByte) return AV_PIX_FMT_YUV444P;
    return depth <= 10 ? AV_PIX_FMT_YUV444P10 : AV_PIX_FMT_YUV444P12;
}

bool splitsChroma(AVPixelFormat format, int width, int height) {
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format);
    return width % (1 << description.log2_chroma_w) != 0 ||
           height % (1 << description.log2_chroma_h) != 0;
}

AVPixelFormat asked(const std::string& name, const Encoding& encoding) {
    const std::vector<AVPixelFormat> formats = formatsOf(*encoding.codec);
    const AVPixelFormat format = av_get_pix_fmt(name.c_str());
    const bool takes = formats.empty() || std::count(formats.begin(), formats.end(), format) != 0;
    if (format != AV_PIX_FMT_NONE && takes && sws_isSupportedOutput(format) != 0) return format;
    if (format == AV_PIX_FMT_PAL8 && encoding.codec->id == AV_CODEC_ID_GIF) return format;
    std::string names;
    for (const AVPixelFormat taken : formats) {
        names.append(names.empty() ? "" : ", ").append(av_get_pix_fmt_name(taken));
    }
    const std::string why = format == AV_PIX_FMT_NONE ? "there is no pixel format \"" + name + "\""
                                                      : std::string(encoding.codec->name) +
                                                            " does not take pixels of " + name;
    throw MediaUsageError(why + (names.empty() ? "" : "; it takes " + names));
}

/// Refuses what would not come back as it was.
void checkLossless(const Encoding& encoding, AVPixelFormat source, AVPixelFormat chosen) {
    const bool grey = av_pix_fmt_desc_get(source)->nb_components < 3;
    const AVPixelFormat from = grey ? packedRgb(source) : source;
    const int loss = av_get_pix_fmt_loss(chosen, from, hasAlpha(from) ? 1 : 0);
    const int harmless = FF_LOSS_CHROMA;  // of full range, which the raster keeps
    if ((loss & ~harmless) == 0) return;
    throw MediaUsageError(std::string(encoding.codec->name) + " cannot hold pixels of " +
                          av_get_pix_fmt_name(source) +
                          " without loss; of pictures .png can, of videos .mkv");
}

}  // namespace

int depthOf(AVPixelFormat format) {
    return av_pix_fmt_desc_get(format)->comp[0].depth;
}

Raster outputRaster(const Encoding& encoding, const Raster& decoded, int width, int height,
                    const std::string& pixelFormat) {
    AVPixelFormat format = AV_PIX_FMT_NONE;
    if (!pixelFormat.empty()) {
        format = asked(pixelFormat, encoding);
    } else {
        format = nearest(formatsOf(*encoding.codec), wanted(encoding, decoded));
        if (encoding.row.has(kWholeChroma) && splitsChroma(format, width, height)) {
            format = nearest(formatsOf(*encoding.codec), withWholeChroma(format));
        }
        const bool user = encoding.lossless && encoding.row.quality.scale != QualityScale::Percent;
        if (user) checkLossless(encoding, unmarked(decoded.format), format);
    }
    if (format == AV_PIX_FMT_PAL8 || !isYuv(format)) {
        return {format, width, height, AVCOL_SPC_RGB, AVCOL_RANGE_JPEG};
    }
    Raster raster = {format, width, height, decoded.matrix, decoded.range};
    if (raster.matrix == AVCOL_SPC_RGB) {
        raster.matrix = usualMatrix(width, height);
        raster.range = AVCOL_RANGE_MPEG;
    }
    if (encoding.codec->id == AV_CODEC_ID_MJPEG || unmarked(format) != format) {
        raster.range = AVCOL_RANGE_JPEG;
    }
    // JPEG files have one matrix, and no place to name another.
    if (encoding.codec->id == AV_CODEC_ID_MJPEG) raster.matrix = AVCOL_SPC_SMPTE170M;
    return raster;
}

}  // namespace brushworks::media
