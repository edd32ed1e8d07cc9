// Small files, read and written as a whole.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace brushworks {

/// What is in a regular file of at most `limit` bytes; none for any other.
std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t limit);

/// Puts `text` in the file's place. A file that was there stays as it was when this fails; a link
/// stays a link, and the file that it leads to is replaced.
bool ReplaceWholeFile(const std::string& path, std::string_view text);

}  // namespace brushworks
