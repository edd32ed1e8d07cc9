// Deep samples cross in whole 16 bits: FFmpeg converts to those exactly, and floats hold them
// exactly.
#include "media/canvas.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <utility>

#include "media/palette.h"

namespace brushworks::media {
namespace {

constexpr float kMost = 65535.0F;
constexpr int kChannels = 4;
constexpr int kDeepPixel = kChannels * static_cast<int>(sizeof(float));

/// Where the samples of R, G, B, A stand in B, G, R, A, and the other way round.
constexpr int kSwapped[kChannels] = {2, 1, 0, 3};

void widen(const std::uint16_t* from, float* to, int pixels) {
    for (int x = 0; x < pixels; ++x) {
        for (int c = 0; c < kChannels; ++c) {
            to[x * kChannels + c] = static_cast<float>(from[x * kChannels + kSwapped[c]]) / kMost;
        }
    }
}

void narrow(const float* from, std::uint16_t* to, int pixels) {
    for (int x = 0; x < pixels; ++x) {
        for (int c = 0; c < kChannels; ++c) {
            const float scaled = from[x * kChannels + kSwapped[c]] * kMost + 0.5F;
            // In this order what is no number becomes 0.
            const float within = std::min(std::max(0.0F, scaled), kMost);
            to[x * kChannels + c] = static_cast<std::uint16_t>(within);
        }
    }
}

std::uint16_t* samplesOf(const AVFrame& frame, int y) {
    return reinterpret_cast<std::uint16_t*>(frame.data[0] +
                                            static_cast<std::ptrdiff_t>(y) * frame.linesize[0]);
}

Raster sampleRaster(int width, int height) {
    return {AV_PIX_FMT_RGBA64, width, height, AVCOL_SPC_RGB, AVCOL_RANGE_JPEG};
}

}  // namespace

Canvas::Canvas(int width, int height, bool deep) : m_nWidth(width), m_nHeight(height) {
    const std::size_t count =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kChannels;
    if (deep) m_floats = std::make_unique<float[]>(count);
    if (!deep) m_pBytes = allocateFrame(bgraRaster(width, height));
}

std::uint8_t* Canvas::pixels() const {
    return isDeep() ? reinterpret_cast<std::uint8_t*>(m_floats.get()) : m_pBytes->data[0];
}

int Canvas::rowBytes() const {
    return isDeep() ? m_nWidth * kDeepPixel : m_pBytes->linesize[0];
}

PixelView Canvas::view() const {
    return {pixels(), m_nWidth, m_nHeight, rowBytes(), isDeep() ? kDeepPixel : kChannels};
}

bool isDeep(AVPixelFormat format) {
    constexpr int kByte = 8;
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format);
    return (description.flags & AV_PIX_FMT_FLAG_PAL) == 0 && description.comp[0].depth > kByte;
}

AVFrame& CanvasConverter::samples(const Canvas& canvas) {
    const bool fits =
        m_pSamples && m_pSamples->width == canvas.width() && m_pSamples->height == canvas.height();
    if (!fits) m_pSamples = allocateFrame(sampleRaster(canvas.width(), canvas.height()));
    return *m_pSamples;
}

void CanvasConverter::read(const AVFrame& source, Canvas& canvas, bool fields) {
    const Raster from = rasterOf(source);
    if (!canvas.isDeep()) {
        m_read.convert(source, from, *canvas.m_pBytes, bgraRaster(canvas.width(), canvas.height()),
                       fields);
        return;
    }
    AVFrame& between = samples(canvas);
    m_read.convert(source, from, between, sampleRaster(canvas.width(), canvas.height()), fields);
    const std::ptrdiff_t span = std::ptrdiff_t{canvas.width()} * kChannels;
    for (int y = 0; y < canvas.height(); ++y) {
        widen(samplesOf(between, y), canvas.m_floats.get() + y * span, canvas.width());
    }
}

FramePtr CanvasConverter::write(const Canvas& canvas, const Raster& raster, bool fields) {
    const bool paletted = raster.format == AV_PIX_FMT_PAL8;
    const Raster target = paletted ? bgraRaster(raster.width, raster.height) : raster;
    FramePtr frame = allocateFrame(target);
    fill(*frame, target, canvas, fields);
    return paletted ? withPalette(*frame) : std::move(frame);
}

void CanvasConverter::fill(AVFrame& target, const Raster& raster, const Canvas& canvas,
                           bool fields) {
    const Raster bytes = bgraRaster(canvas.width(), canvas.height());
    if (!canvas.isDeep()) {
        m_write.convert(*canvas.m_pBytes, bytes, target, raster, fields);
        return;
    }
    AVFrame& between = samples(canvas);
    const std::ptrdiff_t span = std::ptrdiff_t{canvas.width()} * kChannels;
    for (int y = 0; y < canvas.height(); ++y) {
        narrow(canvas.m_floats.get() + y * span, samplesOf(between, y), canvas.width());
    }
    m_write.convert(between, sampleRaster(canvas.width(), canvas.height()), target, raster, fields);
}

}  // namespace brushworks::media
