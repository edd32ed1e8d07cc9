// A tool's answer as a path. What is not surely a path is none: a preset written to a misread name
// would be lost to its user. One that is surely a path but cannot be taken, because it is too long
// or not UTF-8, is empty.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brushworks {

/// Well-formed and without NUL: no overlong form, no surrogate, nothing above U+10FFFF.
bool IsUTF8(std::string_view text);

/// `path`, which lacks the extension when the user typed a name without it. One that may be changed
/// in nothing stays as it is.
std::string WithExtension(const std::string& path, const std::string& extension);

/// The path that a dialog program wrote: all of its output but the end of the line, since a name
/// may hold ends of lines too.
std::optional<std::string> PathOfOutput(std::string_view output);

/// The path of a file: URI of this machine. Every escape must be whole.
std::optional<std::string> PathOfURI(std::string_view uri);

}  // namespace brushworks
