// Which pixel formats a shader sees with their channels in another order than red, green, blue,
// alpha.
#pragma once

#include "brushworks/frame.h"

namespace brushworks {

/// A host uploads every four-channel frame alike, as if blue came first. One with alpha first then
/// reads green, red, alpha, blue, and is called swapped; the swizzle .grab puts it right both ways.
constexpr bool IsSwapped(PixelFormat format) {
    return format == 1 || format == 4 || format == 9;
}

/// For swap uniforms.
constexpr int SwapFlag(PixelFormat format) {
    return IsSwapped(format) ? 1 : 0;
}

/// 1 when a pass between the two has to change the order.
constexpr int SwapFlag(PixelFormat source, PixelFormat target) {
    return IsSwapped(source) != IsSwapped(target) ? 1 : 0;
}

}  // namespace brushworks
