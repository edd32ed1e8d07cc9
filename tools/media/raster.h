// The layout and colour coding of a frame's samples, and conversion between two of them.
#pragma once

#include "media/av.h"

namespace brushworks::media {

/// How a frame's samples are to be read.
struct Raster {
    AVPixelFormat format = AV_PIX_FMT_NONE;
    int width = 0;
    int height = 0;
    AVColorSpace matrix = AVCOL_SPC_UNSPECIFIED;  ///< of the colour differences; RGB has none
    AVColorRange range = AVCOL_RANGE_UNSPECIFIED;

    bool operator==(const Raster&) const = default;
};

/// The raster of a decoded frame, where what the file leaves open is decided: matrix by picture
/// size, as players do, and range by format.
Raster rasterOf(const AVFrame& frame);

/// Packed B, G, R, A of 8 bits, the layout that effects render.
Raster bgraRaster(int width, int height);

bool hasAlpha(AVPixelFormat format);
/// Whether the samples are brightness and colour differences, not red, green and blue or grey.
bool isYuv(AVPixelFormat format);
/// The format without the old mark of full range, which Raster::range tells.
AVPixelFormat unmarked(AVPixelFormat format);
/// The matrix that players take where a file tells none.
AVColorSpace usualMatrix(int width, int height);

/// A frame of that raster with its buffers.
FramePtr allocateFrame(const Raster& raster);

/// Gives `target` what `source` tells beside its samples: times, fields, captions and the like. The
/// raster stays its own, and the encoder chooses its own picture types.
void copyDescription(const AVFrame& source, AVFrame& target);

/// Converts frames, and scales where sizes differ. Keeps tables between frames of the same two
/// rasters. [one thread at a time]
class RasterConverter {
  public:
    /// Converts the samples of `source` into `target`, whose buffers exist. With `fields` the two
    /// fields are converted each for itself, where colour rows can be told apart.
    void convert(const AVFrame& source, const Raster& from, AVFrame& target, const Raster& to,
                 bool fields);

  private:
    void prepare(const Raster& from, const Raster& to);

    Raster m_from;
    Raster m_to;
    ScalerPtr m_pScaler;
};

}  // namespace brushworks::media
