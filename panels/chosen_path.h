// A tool's answer as a path. What is not surely a path is none: a preset written to a misread name
// would be lost to its user.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brushworks {

/// Well-formed and without NUL: no overlong form, no surrogate, nothing above U+10FFFF.
bool IsUTF8(std::string_view text);

/// The path that a dialog program wrote: all of its output but the end of the line, since a name
/// may hold ends of lines too.
std::optional<std::string> PathOfOutput(std::string_view output);

/// The path of a file: URI of this machine. Every escape must be whole.
std::optional<std::string> PathOfURI(std::string_view uri);

}  // namespace brushworks
