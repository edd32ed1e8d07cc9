// Texts from outside (names of files, values, what a file says of itself) as people may see them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brushworks::host {

/// The text as one line of UTF-8 that no terminal takes for orders: control characters, bytes that
/// are no UTF-8, and characters that turn or break the line are told by their codes, such as \x1b,
/// \u009b and \u202e. A printable text stays as it is.
std::string printable(std::string_view text);

/// The text, or its beginning and its end with " ... " between, `most` bytes in all. Characters of
/// UTF-8 stay whole.
std::string shortened(std::string_view text, std::size_t most);

}  // namespace brushworks::host
