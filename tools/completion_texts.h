// The files of tools/shell as constants, embedded when the tool is built.
#pragma once

#include <string_view>

namespace brushworks::tools {

extern const std::string_view kBashCompletion;
extern const std::string_view kZshCompletion;

}  // namespace brushworks::tools
