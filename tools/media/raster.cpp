// Colour conversion that respects matrix and range, by fields where pictures are interlaced.
#include "media/raster.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <cstddef>

namespace brushworks::media {
namespace {

constexpr int kNeutral = 1 << 16;  ///< of contrast and saturation

// The slower, exact ways: full colour resolution, rounding, the same bytes on every processor.
constexpr int kScalerFlags =
    SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP | SWS_BITEXACT;

bool isRgb(AVPixelFormat format) {
    return (av_pix_fmt_desc_get(format)->flags & (AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL)) != 0;
}

/// Whether both fields have whole rows of colour samples.
bool fieldsSplit(const Raster& raster) {
    const int rows = 2 << av_pix_fmt_desc_get(raster.format)->log2_chroma_h;
    return raster.height % rows == 0;
}

/// A view of every second row.
struct Rows {
    const std::uint8_t* data[4];
    int stride[4];
};

Rows rowsOf(const AVFrame& frame, int field, int step) {
    Rows rows = {};
    for (int plane = 0; plane < 4; ++plane) {
        // A palette is one table for all rows.
        const bool table = plane == 1 && frame.format == AV_PIX_FMT_PAL8;
        const std::ptrdiff_t offset = static_cast<std::ptrdiff_t>(field) * frame.linesize[plane];
        rows.data[plane] =
            frame.data[plane] == nullptr || table ? frame.data[plane] : frame.data[plane] + offset;
        rows.stride[plane] = frame.linesize[plane] * step;
    }
    return rows;
}

/// Where the bytes of a frame's alpha stand; without data where it is not made of bytes.
struct AlphaBytes {
    std::uint8_t* data = nullptr;
    std::ptrdiff_t span = 0;
    std::ptrdiff_t step = 0;
};

AlphaBytes alphaOf(const AVFrame& frame, AVPixelFormat format) {
    constexpr int kByte = 8;
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format);
    const bool table = (description.flags & AV_PIX_FMT_FLAG_PAL) != 0;
    const AVComponentDescriptor& alpha = description.comp[description.nb_components - 1];
    if (table || !hasAlpha(format) || alpha.depth != kByte) return {};
    return {frame.data[alpha.plane] + alpha.offset, frame.linesize[alpha.plane], alpha.step};
}

/// Scalers round alpha as they do colours, and dither it; bytes need neither.
void copyAlpha(const AVFrame& source, const Raster& from, const AVFrame& target, const Raster& to) {
    const AlphaBytes in = alphaOf(source, from.format);
    const AlphaBytes out = alphaOf(target, to.format);
    const bool sameSize = from.width == to.width && from.height == to.height;
    if (in.data == nullptr || out.data == nullptr || !sameSize) return;
    for (int y = 0; y < to.height; ++y) {
        const std::uint8_t* alpha = in.data + y * in.span;
        std::uint8_t* copy = out.data + y * out.span;
        for (int x = 0; x < to.width; ++x) copy[x * out.step] = alpha[x * in.step];
    }
}

}  // namespace

AVPixelFormat unmarked(AVPixelFormat format) {
    switch (format) {
        case AV_PIX_FMT_YUVJ411P:
            return AV_PIX_FMT_YUV411P;
        case AV_PIX_FMT_YUVJ420P:
            return AV_PIX_FMT_YUV420P;
        case AV_PIX_FMT_YUVJ422P:
            return AV_PIX_FMT_YUV422P;
        case AV_PIX_FMT_YUVJ440P:
            return AV_PIX_FMT_YUV440P;
        case AV_PIX_FMT_YUVJ444P:
            return AV_PIX_FMT_YUV444P;
        default:
            return format;
    }
}

bool isYuv(AVPixelFormat format) {
    return !isRgb(format) && av_pix_fmt_desc_get(format)->nb_components >= 3;
}

AVColorSpace usualMatrix(int width, int height) {
    const bool large = width >= 1280 || height > 576;
    return large ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
}

Raster rasterOf(const AVFrame& frame) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    Raster raster = {format, frame.width, frame.height, frame.colorspace, frame.color_range};
    if (isRgb(format)) {
        raster.matrix = AVCOL_SPC_RGB;
        raster.range = AVCOL_RANGE_JPEG;
        return raster;
    }
    if (raster.matrix == AVCOL_SPC_UNSPECIFIED || raster.matrix == AVCOL_SPC_RGB ||
        raster.matrix == AVCOL_SPC_RESERVED) {
        raster.matrix = usualMatrix(frame.width, frame.height);
    }
    if (unmarked(format) != format) raster.range = AVCOL_RANGE_JPEG;
    if (raster.range == AVCOL_RANGE_UNSPECIFIED) {
        // Grey pictures have no colour differences, and no reason for headroom.
        const bool grey = av_pix_fmt_desc_get(format)->nb_components < 3;
        raster.range = grey ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    }
    return raster;
}

Raster bgraRaster(int width, int height) {
    return {AV_PIX_FMT_BGRA, width, height, AVCOL_SPC_RGB, AVCOL_RANGE_JPEG};
}

bool hasAlpha(AVPixelFormat format) {
    return (av_pix_fmt_desc_get(format)->flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
}

FramePtr allocateFrame(const Raster& raster) {
    FramePtr frame = newFrame();
    frame->format = raster.format;
    frame->width = raster.width;
    frame->height = raster.height;
    frame->colorspace = raster.matrix;
    frame->color_range = raster.range;
    check(av_frame_get_buffer(frame.get(), 0), "cannot make room for a frame");
    return frame;
}

void copyDescription(const AVFrame& source, AVFrame& target) {
    const AVColorSpace matrix = target.colorspace;
    const AVColorRange range = target.color_range;
    check(av_frame_copy_props(&target, &source), "cannot describe a frame");
    target.colorspace = matrix;
    target.color_range = range;
    target.pict_type = AV_PICTURE_TYPE_NONE;
    target.key_frame = 0;
    // The samples stand upright by now.
    av_frame_remove_side_data(&target, AV_FRAME_DATA_DISPLAYMATRIX);
}

void RasterConverter::prepare(const Raster& from, const Raster& to) {
    if (m_pScaler && from == m_from && to == m_to) return;
    m_pScaler.reset(sws_getContext(from.width, from.height, unmarked(from.format), to.width,
                                   to.height, unmarked(to.format), kScalerFlags, nullptr, nullptr,
                                   nullptr));
    if (!m_pScaler) {
        throw MediaError(std::string("cannot convert pixels from ") +
                         av_get_pix_fmt_name(from.format) + " to " +
                         av_get_pix_fmt_name(to.format));
    }
    // Gives an error for pairs that have no colour differences to convert; those need none.
    sws_setColorspaceDetails(m_pScaler.get(), sws_getCoefficients(from.matrix),
                             from.range == AVCOL_RANGE_JPEG, sws_getCoefficients(to.matrix),
                             to.range == AVCOL_RANGE_JPEG, 0, kNeutral, kNeutral);
    m_from = from;
    m_to = to;
}

void RasterConverter::convert(const AVFrame& source, const Raster& from, AVFrame& target,
                              const Raster& to, bool fields) {
    // Samples that stay as they are belong to their rows anyway; and of every second row the scaler
    // copies whole strides, past the end of the frame.
    const bool kept = from.format == to.format;
    const bool split = fields && !kept && fieldsSplit(from) && fieldsSplit(to);
    const int step = split ? 2 : 1;
    Raster fromRows = from;
    Raster toRows = to;
    fromRows.height /= step;
    toRows.height /= step;
    prepare(fromRows, toRows);
    for (int field = 0; field < step; ++field) {
        const Rows in = rowsOf(source, field, step);
        const Rows out = rowsOf(target, field, step);
        std::uint8_t* const data[4] = {
            const_cast<std::uint8_t*>(out.data[0]), const_cast<std::uint8_t*>(out.data[1]),
            const_cast<std::uint8_t*>(out.data[2]), const_cast<std::uint8_t*>(out.data[3])};
        check(sws_scale(m_pScaler.get(), in.data, in.stride, 0, fromRows.height, data, out.stride),
              "cannot convert pixels");
    }
    copyAlpha(source, from, target, to);
}

}  // namespace brushworks::media
