#include "presets/document_guard.h"

#include <algorithm>
#include <cstdint>

namespace brushworks {
namespace {

constexpr int kMaxDepth = 16;
constexpr int kMaxAttributes = 64;

/// How many bytes the character at the start of `text` takes; 0 for one that XML does not allow.
std::size_t CharacterBytes(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t first = byte(0);
    if (first < 0x80)
        return first >= ' ' || first == '\t' || first == '\n' || first == '\r' ? 1 : 0;
    const std::size_t bytes = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < bytes) return 0;
    for (std::size_t i = 1; i < bytes; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 0;
    // Longer than need be, half of a surrogate pair, past the last character.
    if ((first == 0xE0 && byte(1) < 0xA0) || (first == 0xED && byte(1) > 0x9F) ||
        (first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) > 0x8F))
        return 0;
    return bytes;
}

/// Every quote that opens in the tag closes in it, and its attributes can be counted.
bool IsSlimTag(std::string_view tag) {
    char quote = 0;
    int attributes = 0;
    for (const char c : tag) {
        if (quote != 0) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '=') {
            ++attributes;
        }
    }
    return quote == 0 && attributes <= kMaxAttributes;
}

/// What a tag, without its brackets, does to the depth; false for one that may not be there.
bool Step(std::string_view tag, int& depth) {
    if (tag.starts_with('!'))
        return tag.size() >= 5 && tag.starts_with("!--") && tag.ends_with("--");
    if (!IsSlimTag(tag)) return false;
    if (tag.starts_with('?')) return true;
    if (tag.starts_with('/')) return --depth >= 0;
    if (tag.ends_with('/')) return depth < kMaxDepth;
    return ++depth <= kMaxDepth;
}

}  // namespace

bool IsXmlText(std::string_view text) {
    while (!text.empty()) {
        const std::size_t bytes = CharacterBytes(text);
        if (bytes == 0) return false;
        text.remove_prefix(bytes);
    }
    return true;
}

bool IsSafeToParse(std::string_view text) {
    if (text.size() > kMaxDocumentBytes || !IsXmlText(text)) return false;
    int depth = 0;
    for (;;) {
        const std::size_t open = std::min(text.find_first_of("<>"), text.size());
        if (open == text.size()) return depth == 0;
        if (text[open] == '>') return false;
        text.remove_prefix(open + 1);
        const std::size_t close = text.find_first_of("<>");
        if (close == text.npos || text[close] == '<') return false;
        if (!Step(text.substr(0, close), depth)) return false;
        text.remove_prefix(close + 1);
    }
}

}  // namespace brushworks
