// Walks the outermost boxes, elements, chunks, blocks or packets of a file.
#include "media/container_end.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <iterator>

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
constexpr std::uint32_t kPngStart = 0x89504E47;
constexpr std::uint32_t kTiffLittleEndian = 0x49492A00;
constexpr std::uint32_t kTiffBigEndian = 0x4D4D002A;

/// Whether an MP4 or MOV file begins with a box of that type.
bool isFirstBox(std::uint32_t type) {
    constexpr std::uint32_t kTypes[] = {tag("ftyp"), tag("moov"), tag("mdat"),
                                        tag("wide"), tag("free"), tag("skip")};
    return std::ranges::find(kTypes, type) != std::end(kTypes);
}

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

/// Whether a size waits for being filled in: its writer could not go back to it.
bool isLeftOpen(std::int64_t size) {
    return size == 0 || size == 0xFFFFFFFF;
}

/// The chunks of an AVI file that was left open.
bool openChunksEndEarly(AVIOContext& io, std::int64_t at, std::int64_t fileSize) {
    while (at < fileSize) {
        if (fileSize - at < 8) return true;
        avio_seek(&io, at, SEEK_SET);
        const bool list = avio_rb32(&io) == tag("LIST");
        const std::int64_t size = avio_rl32(&io);
        if (list && isLeftOpen(size)) {
            at += 12;
            continue;
        }
        if (size > fileSize - at - 8) return true;
        at += 8 + size + size % 2;
    }
    return false;
}

/// AVI and WebP: a chunk of a type and a size, padded to an even number of bytes. Large AVI files
/// are several.
bool chunksEndEarly(AVIOContext& io, std::int64_t fileSize) {
    constexpr std::int64_t kHeadBytes = 12;
    if (fileSize < kHeadBytes) return true;
    for (std::int64_t at = 0; fileSize - at >= kHeadBytes;) {
        avio_seek(&io, at, SEEK_SET);
        if (avio_rb32(&io) != tag("RIFF")) return false;
        const std::int64_t size = avio_rl32(&io);
        const bool open = isLeftOpen(size) && avio_rb24(&io) == tag("AVI ") >> 8;
        if (open) return openChunksEndEarly(io, at + kHeadBytes, fileSize);
        if (size > fileSize - at - 8) return true;
        at += 8 + size + size % 2;
    }
    return false;
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

/// PNG, also with several frames: chunks of a size and a type, with a sum behind each.
bool pngEndsEarly(AVIOContext& io, std::int64_t fileSize) {
    constexpr std::int64_t kAround = 12;
    for (std::int64_t at = 8; fileSize - at >= kAround;) {
        avio_seek(&io, at, SEEK_SET);
        const std::int64_t size = avio_rb32(&io);
        if (avio_rb32(&io) == tag("IEND")) return false;
        at += kAround + size;
    }
    return true;
}

void skipGifColors(AVIOContext& io, int flags) {
    if ((flags & 0x80) != 0) avio_skip(&io, 3 * (2 << (flags & 7)));
}

/// GIF: a head, then pictures and extensions in parts of at most 255 bytes, then a trailer.
std::optional<std::int64_t> gifEnd(AVIOContext& io, std::int64_t fileSize) {
    constexpr int kExtension = 0x21;
    constexpr int kImage = 0x2C;
    constexpr int kTrailer = 0x3B;
    avio_seek(&io, 10, SEEK_SET);
    skipGifColors(io, avio_r8(&io));
    avio_skip(&io, 2);
    for (;;) {
        switch (avio_r8(&io)) {
            case kTrailer:
                return avio_tell(&io);
            case kExtension:
                avio_skip(&io, 1);
                break;
            case kImage:
                avio_skip(&io, 8);
                skipGifColors(io, avio_r8(&io));
                avio_skip(&io, 1);
                break;
            default:  // nothing is left, or what only a demuxer may know
                return avio_feof(&io) != 0 ? std::nullopt : std::optional(fileSize);
        }
        while (const int size = avio_r8(&io)) avio_skip(&io, size);
    }
}

/// TIFF: the picture's directory, which may stand last, with the place of a next one at its end.
bool directoryEndsEarly(AVIOContext& io, std::int64_t fileSize, bool bigEndian) {
    constexpr std::int64_t kEntryBytes = 12;
    avio_seek(&io, 4, SEEK_SET);
    const std::int64_t at = bigEndian ? avio_rb32(&io) : avio_rl32(&io);
    avio_seek(&io, at, SEEK_SET);
    const std::int64_t entries = bigEndian ? avio_rb16(&io) : avio_rl16(&io);
    return at + 2 + entries * kEntryBytes + 4 > fileSize;
}

/// How large the packets of a transport stream are, and where in them their mark stands.
struct Packets {
    static constexpr std::int64_t kLooks = 4;  ///< at so many marks
    std::int64_t size;
    std::int64_t mark;

    /// Whether there are some from `at` on, as far as the file goes.
    bool standAt(std::int64_t at, AVIOContext& io, std::int64_t fileSize) const {
        for (int i = 0; i < kLooks && at + mark < fileSize; ++i, at += size) {
            avio_seek(&io, at + mark, SEEK_SET);
            if (avio_r8(&io) != 0x47) return false;
        }
        return true;
    }
    bool begin(AVIOContext& io, std::int64_t fileSize) const {
        return fileSize > size && standAt(0, io, fileSize);
    }
    bool end(AVIOContext& io, std::int64_t fileSize) const {
        return standAt(fileSize - std::min(fileSize / size, kLooks) * size, io, fileSize);
    }
};

/// MPEG transport streams, which do not tell more than where a packet ends. There may be gaps
/// between packets, so that the last ones say it.
bool packetsEndEarly(AVIOContext& io, std::int64_t fileSize) {
    constexpr Packets kKinds[] = {{188, 0}, {192, 4}, {204, 0}};
    const auto begin = [&](const Packets& kind) { return kind.begin(io, fileSize); };
    const auto end = [&](const Packets& kind) { return kind.end(io, fileSize); };
    return std::ranges::any_of(kKinds, begin) && std::ranges::none_of(kKinds, end);
}

bool endsEarly(AVIOContext& io, std::int64_t fileSize) {
    const std::uint32_t first = avio_rb32(&io);
    if (isFirstBox(avio_rb32(&io))) return boxesEndEarly(io, fileSize);
    switch (first) {
        case tag("RIFF"):
            return chunksEndEarly(io, fileSize);
        case kEbmlHeader:
            return segmentEndsEarly(io, fileSize);
        case kPngStart:
            return pngEndsEarly(io, fileSize);
        case kTiffLittleEndian:
        case kTiffBigEndian:
            return directoryEndsEarly(io, fileSize, first == kTiffBigEndian);
        default:
            return packetsEndEarly(io, fileSize);
    }
}

}  // namespace

std::optional<std::int64_t> contentEnd(AVIOContext& io) {
    const std::int64_t fileSize = avio_size(&io);
    const bool gif = avio_rb32(&io) == tag("GIF8");
    avio_seek(&io, 0, SEEK_SET);
    std::optional<std::int64_t> end = fileSize;
    if (gif) {
        end = gifEnd(io, fileSize);
    } else if (endsEarly(io, fileSize)) {
        end.reset();
    }
    avio_seek(&io, 0, SEEK_SET);
    return end;
}

}  // namespace brushworks::media
