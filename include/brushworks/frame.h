// Pictures in memory as they cross the boundary.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brushworks {

/// Layout of a pixel. Floats are nominally 0.0 to 1.0; one 255th is the scale between the two
/// widths.
enum PixelFormat : std::int32_t {
    PixelFormatBGRA8 = 0,    ///< B, G, R, A; 8 bits each
    PixelFormatARGB8 = 1,    ///< A, R, G, B; 8 bits each
    PixelFormatBGRA32f = 3,  ///< B, G, R, A; 32-bit floats
    PixelFormatARGB32f = 4,  ///< A, R, G, B; 32-bit floats
    PixelFormatMono8 = 6,    ///< one 8-bit channel
    PixelFormatMono32f = 7,  ///< one 32-bit float channel
};

/// A picture in memory. Whoever made the record owns it and the pixels; the library keeps no
/// pointer to either past the call that received them.
///
/// A record is sound when rows do not overlap, nDepth is that of its format, nByteSpan is a whole
/// number of pixels, and floats lie at addresses that are multiples of 4. What is not sound is
/// refused; nothing of it is read or written.
struct FrameParams {
    std::uint8_t* pBuffer;   ///< first byte of the row that has the lowest address; with a negative
                             ///< nByteSpan, of the row that is first on screen
    std::int32_t nWidth;     ///< pixels per row
    std::int32_t nHeight;    ///< rows
    std::int32_t nByteSpan;  ///< bytes from one row to the next, a multiple of nDepth; negative
                             ///< allowed
    std::int32_t nDepth;     ///< bytes per pixel: 4 for 8-bit colour, 16 for float colour, 1, 4
    std::int32_t nReserved0;    ///< write 0
    std::int32_t nReserved1;    ///< write 0
    PixelFormat pfPixelFormat;  ///< pixel layout
    bool bFlipped;              ///< rows run bottom-up
};
static_assert(sizeof(FrameParams) == 40);
static_assert(offsetof(FrameParams, nWidth) == 8 && offsetof(FrameParams, nHeight) == 12 &&
              offsetof(FrameParams, nByteSpan) == 16 && offsetof(FrameParams, nDepth) == 20 &&
              offsetof(FrameParams, nReserved0) == 24 && offsetof(FrameParams, nReserved1) == 28 &&
              offsetof(FrameParams, pfPixelFormat) == 32 && offsetof(FrameParams, bFlipped) == 36);

/// A rectangle in pixels.
struct tagRECT {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};
static_assert(sizeof(tagRECT) == 16);

}  // namespace brushworks
