#include "panels/chosen_path.h"

#include <climits>
#include <cstddef>
#include <cstdint>

namespace brushworks {
namespace {

/// How many bytes the character at the start of `text` takes, or 0 where it is not well-formed.
std::size_t CharacterLength(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    if (first < 0x80) return first != 0;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
    std::uint32_t code = first & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
        code = code << 6 | (byte(i) & 0x3Fu);
    }
    constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < kLeast[length] || code > 0x10FFFF || isSurrogate ? 0 : length;
}

/// Empty for one that cannot be taken.
std::string CheckedPath(const std::string& path) {
    if (path.size() >= PATH_MAX || !IsUTF8(path)) return "";
    return path;
}

/// A file that the portal lends to a sandbox has one name: what is written beside it stays inside.
bool IsLent(std::string_view path) {
    return path.starts_with("/run/") && path.find("/doc/") != path.npos;
}

int HexDigit(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

}  // namespace

bool IsUTF8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string WithExtension(const std::string& path, const std::string& extension) {
    const std::string ending = "." + extension;
    return path.ends_with(ending) || path.ends_with('/') || IsLent(path) ? path : path + ending;
}

std::optional<std::string> PathOfOutput(std::string_view output) {
    if (output.ends_with('\n')) output.remove_suffix(1);
    if (!output.starts_with('/')) return std::nullopt;
    return CheckedPath(std::string(output));
}

std::optional<std::string> PathOfURI(std::string_view uri) {
    constexpr std::string_view kScheme = "file://";
    constexpr std::string_view kThisMachine = "localhost";
    if (!uri.starts_with(kScheme)) return std::nullopt;
    uri.remove_prefix(kScheme.size());
    if (uri.starts_with(kThisMachine)) uri.remove_prefix(kThisMachine.size());

    std::string path;
    for (std::size_t i = 0; i < uri.size(); ++i) {
        if (uri[i] == '?' || uri[i] == '#') return std::nullopt;
        if (uri[i] != '%') {
            path += uri[i];
            continue;
        }
        if (uri.size() - i < 3) return std::nullopt;
        const int high = HexDigit(uri[i + 1]);
        const int low = HexDigit(uri[i + 2]);
        if (high < 0 || low < 0) return std::nullopt;
        path += static_cast<char>(high << 4 | low);
        i += 2;
    }
    if (!path.starts_with('/')) return std::nullopt;
    return CheckedPath(path);
}

}  // namespace brushworks
