// Decodes UTF-8 strictly: what a terminal could take apart in another way is no character here.
#include "host/printable.h"

#include <cstdint>
#include <cstdio>

namespace brushworks::host {
namespace {

struct Character {
    std::uint32_t code;
    std::size_t bytes;  ///< 0 for what is no UTF-8
};

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The character that `text`, which is not empty, begins with.
Character firstOf(std::string_view text) {
    constexpr Character kNone = {0, 0};
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) return {lead, 1};
    const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC0 || lead > 0xF4 || text.size() < bytes) return kNone;
    std::uint32_t code = lead & (0xFFU >> (bytes + 1));
    for (std::size_t i = 1; i < bytes; ++i) {
        if (!isContinuation(text[i])) return kNone;
        code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    return code < kSmallest[bytes] || code > 0x10FFFF || surrogate ? kNone : Character{code, bytes};
}

/// Whether a terminal does something else than to show it.
bool givesOrders(std::uint32_t code) {
    struct Range {
        std::uint32_t first;
        std::uint32_t last;
    };
    constexpr Range kRanges[] = {
        {0x00, 0x1F},     {0x7F, 0x9F},      // controls
        {0x061C, 0x061C}, {0x200E, 0x200F},  // marks of direction
        {0x2028, 0x202E},                    // ends of lines and paragraphs, overrides of direction
        {0x2066, 0x2069},                    // isolates
    };
    for (const Range& range : kRanges) {
        if (code >= range.first && code <= range.last) return true;
    }
    return false;
}

std::string escaped(const char* pattern, unsigned int code) {
    char text[16];
    std::snprintf(text, sizeof text, pattern, code);
    return text;
}

}  // namespace

std::string printable(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const Character character = firstOf(text);
        const std::size_t bytes = character.bytes > 0 ? character.bytes : 1;
        if (character.bytes == 0 || character.code < 0x80) {
            const auto byte = static_cast<unsigned char>(text[0]);
            const bool shows = character.bytes > 0 && !givesOrders(byte);
            shown += shows ? std::string(1, text[0]) : escaped("\\x%02x", byte);
        } else if (givesOrders(character.code)) {
            shown += escaped("\\u%04x", character.code);
        } else {
            shown += text.substr(0, bytes);
        }
        text.remove_prefix(bytes);
    }
    return shown;
}

std::string shortened(std::string_view text, std::size_t most) {
    constexpr std::string_view kGap = " ... ";
    if (text.size() <= most || most <= kGap.size()) return std::string(text);
    std::size_t head = (most - kGap.size()) * 2 / 3;
    std::size_t tail = text.size() - (most - kGap.size() - head);
    while (head > 0 && isContinuation(text[head])) --head;
    while (tail < text.size() && isContinuation(text[tail])) ++tail;
    return std::string(text.substr(0, head)).append(kGap).append(text.substr(tail));
}

}  // namespace brushworks::host
