// Records for pictures in memory, as hosts hand them to a render.
#pragma once

#include "brushworks/frame.h"

namespace brushworks::host {

/// Bytes per pixel of a layout.
constexpr int bytesPerPixel(PixelFormat format) {
    switch (format) {
        case PixelFormatBGRA32f:
        case PixelFormatARGB32f:
            return 16;
        case PixelFormatMono8:
            return 1;
        default:
            return 4;
    }
}

/// A picture whose first row in memory is the top one. `rowBytes` go from one row to the next.
inline FrameParams frameParams(std::uint8_t* pixels, int width, int height, int rowBytes,
                               PixelFormat format) {
    return {pixels, width, height, rowBytes, bytesPerPixel(format), 0, 0, format, false};
}

/// Every second row of a picture: field 0 has the top row, field 1 the one below it.
inline FrameParams fieldOf(const FrameParams& frame, int field) {
    FrameParams rows = frame;
    rows.pBuffer += static_cast<std::ptrdiff_t>(field) * frame.nByteSpan;
    rows.nByteSpan = frame.nByteSpan * 2;
    rows.nHeight = (frame.nHeight + 1 - field) / 2;
    return rows;
}

}  // namespace brushworks::host
