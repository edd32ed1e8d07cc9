// The layout of samples that frames are encoded in.
#pragma once

#include <string>

#include "media/encoder.h"
#include "media/raster.h"

namespace brushworks::media {

/// The raster that `encoding` is fed with, when frames like `decoded` are stored as `width` by
/// `height`: the source's own where the encoder takes it, else the one that loses least. RGB
/// becomes 4:2:0, which everything plays, where the encoder loses detail anyway. `pixelFormat` is
/// what the user asks for, or empty. Throws MediaUsageError when the encoder does not take that, or
/// would lose something although it is to be lossless.
Raster outputRaster(const Encoding& encoding, const Raster& decoded, int width, int height,
                    const std::string& pixelFormat = "");

/// Bits of a sample.
int depthOf(AVPixelFormat format);

}  // namespace brushworks::media
