// Walks the outermost boxes, elements or chunks of a container file.
#include "media/container_end.h"

#include <bit>
#include <cstdint>

namespace brushworks::media {
namespace {

constexpr std::uint32_t tag(const char (&name)[5]) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(name[0])) << 24 |
           static_cast<std::uint32_t>(static_cast<unsigned char>(name[1])) << 16 |
           static_cast<std::uint32_t>(static_cast<unsigned char>(name[2])) << 8 |
           static_cast<std::uint32_t>(static_cast<unsigned char>(name[3]));
}

constexpr std::uint32_t kEbmlHeader = 0x1A45DFA3;
constexpr std::uint32_t kMatroskaSegment = 0x18538067;

/// MP4 and MOV: boxes of a size and a type, from the first byte to the last.
bool boxesEndEarly(AVIOContext& io, std::int64_t fileSize) {
    for (std::int64_t at = 0; at < fileSize;) {
        if (fileSize - at < 8) return true;
        avio_seek(&io, at, SEEK_SET);
        std::int64_t size = avio_rb32(&io);
        avio_rb32(&io);
        if (size == 1) size = static_cast<std::int64_t>(avio_rb64(&io));
        if (size == 0) return false;  // up to the end, wherever that is
        if (size < 8 || size > fileSize - at) return true;
        at += size;
    }
    return false;
}

/// AVI and WebP: chunks of a type and a size, padded to an even number of bytes.
bool chunksEndEarly(AVIOContext& io, std::int64_t fileSize) {
    avio_seek(&io, 4, SEEK_SET);
    const std::int64_t size = avio_rl32(&io);
    return size + 8 > fileSize;
}

/// The size of the element whose identifier has just been read, or -1 when it is left open.
std::int64_t elementSize(AVIOContext& io) {
    const int first = avio_r8(&io);
    const int more = std::countl_zero(static_cast<std::uint8_t>(first));
    if (more > 7) return -1;
    std::int64_t size = first & (0x7F >> more);
    bool allOnes = size == (0x7F >> more);
    for (int i = 0; i < more; ++i) {
        const int next = avio_r8(&io);
        allOnes = allOnes && next == 0xFF;
        size = size << 8 | next;
    }
    return allOnes ? -1 : size;
}

/// Matroska and WebM: a header element, then one segment.
bool segmentEndsEarly(AVIOContext& io, std::int64_t fileSize) {
    avio_seek(&io, 4, SEEK_SET);
    const std::int64_t headerSize = elementSize(io);
    if (headerSize < 0) return false;
    avio_skip(&io, headerSize);
    if (avio_rb32(&io) != kMatroskaSegment) return avio_feof(&io) != 0;
    const std::int64_t size = elementSize(io);
    return size >= 0 && avio_tell(&io) + size > fileSize;
}

}  // namespace

bool endsEarly(AVIOContext& io) {
    const std::int64_t fileSize = avio_size(&io);
    const std::uint32_t first = avio_rb32(&io);
    const std::uint32_t second = avio_rb32(&io);
    bool early = false;
    if (second == tag("ftyp")) early = boxesEndEarly(io, fileSize);
    if (first == tag("RIFF")) early = chunksEndEarly(io, fileSize);
    if (first == kEbmlHeader) early = segmentEndsEarly(io, fileSize);
    avio_seek(&io, 0, SEEK_SET);
    return early;
}

}  // namespace brushworks::media
