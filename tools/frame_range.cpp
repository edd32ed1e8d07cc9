// Reads the two ends.
#include "frame_range.h"

#include <charconv>

#include "host/error.h"

namespace brushworks::tools {
namespace {

[[noreturn]] void fail(const std::string& text) {
    throw host::UsageError("\"" + text +
                           "\" names no frames; write A-B, A-, -B or A, counted from 0");
}

std::int64_t numberIn(const std::string& text, std::size_t from, std::size_t to) {
    std::int64_t number = 0;
    const char* end = text.data() + to;
    const auto [rest, error] = std::from_chars(text.data() + from, end, number);
    if (error != std::errc() || rest != end || number < 0) fail(text);
    return number;
}

}  // namespace

FrameRange FrameRange::parse(const std::string& text) {
    const std::size_t dash = text.find('-');
    FrameRange range;
    if (dash == std::string::npos) {
        range.first = range.last = numberIn(text, 0, text.size());
        return range;
    }
    if (text.size() == 1) fail(text);
    if (dash > 0) range.first = numberIn(text, 0, dash);
    if (dash + 1 < text.size()) range.last = numberIn(text, dash + 1, text.size());
    if (range.last < range.first) fail(text);
    return range;
}

}  // namespace brushworks::tools
