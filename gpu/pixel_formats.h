// Families of pixel formats, for operations that make textures of their own.
#pragma once

#include "brushworks/frame.h"

namespace brushworks {

/// Texels are floats: sums neither saturate nor lose their sign. Hosts may know 8 and 9, which have
/// no name here, as further float formats, the second with alpha first.
constexpr bool IsFloating(PixelFormat format) {
    return format == PixelFormatBGRA32f || format == PixelFormatARGB32f || format == 8 ||
           format == 9;
}

/// The same texels with alpha last.
constexpr PixelFormat Unswapped(PixelFormat format) {
    switch (static_cast<int>(format)) {
        case PixelFormatARGB8:
            return PixelFormatBGRA8;
        case PixelFormatARGB32f:
            return PixelFormatBGRA32f;
        case 9:
            return static_cast<PixelFormat>(8);
        default:
            return format;
    }
}

/// Floats in the same order of channels.
constexpr PixelFormat FloatsLike(PixelFormat format) {
    return Unswapped(format) == format ? PixelFormatBGRA32f : PixelFormatARGB32f;
}

}  // namespace brushworks
