// Whether a JPEG picture has its end: decoders make one up when it is missing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace brushworks::media {

/// True when an end marker follows the samples. Markers in front of them, such as those of an
/// embedded thumbnail, do not count.
inline bool jpegHasEnd(std::span<const std::uint8_t> bytes) {
    constexpr std::uint8_t kMark = 0xFF;
    constexpr std::uint8_t kStartOfScan = 0xDA;
    constexpr std::uint8_t kEndOfImage = 0xD9;
    constexpr std::size_t kMarkerBytes = 2;

    // Segments in front of the samples: marker, then a length that counts itself.
    std::size_t at = kMarkerBytes;
    while (at + 4 <= bytes.size() && bytes[at] == kMark && bytes[at + 1] != kStartOfScan) {
        const bool fill = bytes[at + 1] == kMark;
        const std::size_t length = static_cast<std::size_t>(bytes[at + 2] << 8 | bytes[at + 3]);
        at += fill ? 1 : kMarkerBytes + length;
    }
    // Within samples a mark is never followed by the end's number.
    for (; at + 1 < bytes.size(); ++at) {
        if (bytes[at] == kMark && bytes[at + 1] == kEndOfImage) return true;
    }
    return false;
}

}  // namespace brushworks::media
