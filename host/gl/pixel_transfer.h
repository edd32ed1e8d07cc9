// Pixels between memory and textures: which GL layout each format of the contract has, and rows of
// any span.
#pragma once

#include <optional>

#include "brushworks/frame.h"

namespace brushworks::host::gl {

/// How a format looks to OpenGL. All of four channels go in and out in one order, so that a texture
/// of ARGB pixels reads G, R, A, B: effects count on that.
struct PixelLayout {
    unsigned int internalFormat;
    unsigned int format;
    unsigned int type;
    int channels;
    int bytes;  ///< per pixel
};

/// None for a format that the contract does not name.
std::optional<PixelLayout> pixelLayout(PixelFormat format);

/// A rectangle of a texture in texels.
struct Region {
    int left;
    int top;
    int width;
    int height;
};

/// Replaces the region with pixels whose rows are `rowSpan` bytes apart, 0 for rows without gaps. A
/// negative span goes up in memory from `pixels`. False for rows that overlap.
bool uploadPixels(unsigned int texture, const Region& region, const PixelLayout& layout,
                  const void* pixels, int rowSpan);

/// Stores the region, in the same way.
bool readPixels(unsigned int texture, const Region& region, const PixelLayout& layout, void* pixels,
                int rowSpan);

/// Has the region stored without gaps in the bound pixel-pack buffer, and does not wait for it.
void readPixelsIntoBuffer(unsigned int texture, const Region& region, const PixelLayout& layout);

/// Copies rows between two places in memory.
void copyRows(std::uint8_t* target, int targetSpan, const std::uint8_t* source, int sourceSpan,
              int rowBytes, int rows);

}  // namespace brushworks::host::gl
