// What a host tells a render about the frame.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brushworks {

/// Bits of RenderInfo::dwFlags.
inline constexpr std::uint32_t kRenderHasFieldMode = 0x20;    ///< nFieldMode is valid
inline constexpr std::uint32_t kRenderHasPixelAspect = 0x40;  ///< dPixelAspect is valid

/// A value of RenderInfo::nFieldMode: the frames are whole pictures. 2 and less: single fields.
inline constexpr std::int16_t kFieldModeFrame = 3;

/// Written by the host, read and never changed by the library. A host's own record may go on behind
/// the last member.
///
/// On the processor, Impressionist and Mosaic look at nFieldMode whatever dwFlags says, and take
/// anything but 3 for a field: set it to 3 for whole frames.
struct RenderInfo {
    std::uint32_t dwFlags;     ///< kRenderHas... bits
    double dPixelAspect;       ///< width of a pixel over its height
    std::int32_t nRandomSeed;  ///< seed of the effects with random strokes or cells
    std::int16_t nFieldMode;   ///< 3 whole frames; 2 or less fields
};
static_assert(sizeof(RenderInfo) == 24);
static_assert(offsetof(RenderInfo, dPixelAspect) == 8 && offsetof(RenderInfo, nRandomSeed) == 16 &&
              offsetof(RenderInfo, nFieldMode) == 20);

/// What a GPU render is for. The library ignores it.
enum RenderType : std::int32_t {
    kRenderPreview = 0,
    kRenderFinal = 1,
};

}  // namespace brushworks
