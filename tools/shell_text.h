// Words of a command line for people to copy.
#pragma once

#include <string>
#include <string_view>

namespace brushworks::tools {

/// The word as a POSIX shell takes it: quoted where it holds more than letters, digits and the
/// like.
std::string shellWord(std::string_view word);

}  // namespace brushworks::tools
