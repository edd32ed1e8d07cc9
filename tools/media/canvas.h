// A picture as effects render it, and the way there and back: bytes for sources of 8 bits, floats
// for deeper ones, so that no depth is lost on the way.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "media/orientation.h"
#include "media/raster.h"

namespace brushworks::media {

/// Packed B, G, R, A of bytes, or of floats of 0 to 1.
class Canvas {
  public:
    Canvas(int width, int height, bool deep);

    int width() const { return m_nWidth; }
    int height() const { return m_nHeight; }
    bool isDeep() const { return m_pBytes == nullptr; }
    std::uint8_t* pixels() const;
    int rowBytes() const;
    PixelView view() const;

  private:
    friend class CanvasConverter;

    int m_nWidth;
    int m_nHeight;
    FramePtr m_pBytes;                  ///< null where the canvas is deep
    std::unique_ptr<float[]> m_floats;  ///< FFmpeg has no such layout, so these are our own
};

/// Whether a frame's samples need a deep canvas.
bool isDeep(AVPixelFormat format);

/// Brings frames to canvases and back. [one thread at a time]
class CanvasConverter {
  public:
    /// Reads the samples of `source` into a canvas of its size. With `fields` each field for
    /// itself.
    void read(const AVFrame& source, Canvas& canvas, bool fields);
    /// A new frame of `raster` that shows the canvas, which has its size.
    FramePtr write(const Canvas& canvas, const Raster& raster, bool fields);

  private:
    AVFrame& samples(const Canvas& canvas);
    void fill(AVFrame& target, const Raster& raster, const Canvas& canvas, bool fields);

    RasterConverter m_read;
    RasterConverter m_write;
    FramePtr m_pSamples;  ///< R, G, B, A of 16 bits, between a deep canvas and FFmpeg
};

}  // namespace brushworks::media
