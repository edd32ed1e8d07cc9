// What a person may have meant by a word of the command line that is no command and no option.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace brushworks::tools {

/// After a failed parse: the message for the first word that was not known, with the nearest name;
/// "" when all were.
std::string unknownWord(const CLI::App& app);

}  // namespace brushworks::tools
