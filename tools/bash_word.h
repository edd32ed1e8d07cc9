// A word as it is typed in bash, perhaps half, and the text that it stands for.
#pragma once

#include <string>
#include <string_view>

namespace brushworks::tools {

struct BashWord {
    std::string text;
    char quote = 0;  ///< that is still open at its end: ' or " or 0
};

/// Takes quotes and backslashes away.
BashWord readBashWord(std::string_view typed);

/// What is to be typed for `text` inside of `quote`, or outside of any for 0.
std::string typeInBash(std::string_view text, char quote);

}  // namespace brushworks::tools
