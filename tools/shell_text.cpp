// Quotes for the shell.
#include "shell_text.h"

namespace brushworks::tools {

std::string shellWord(std::string_view word) {
    constexpr std::string_view kPlain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./,:+=@%";
    if (!word.empty() && word.find_first_not_of(kPlain) == std::string_view::npos) {
        return std::string(word);
    }
    // Double quotes read best; single ones hold everything but themselves.
    const bool plain = word.find_first_of("\"$`\\!") == std::string_view::npos;
    const char quote = plain ? '"' : '\'';
    std::string quoted(1, quote);
    for (const char c : word) {
        if (c == quote) {
            quoted += "'\\''";
        } else {
            quoted += c;
        }
    }
    quoted += quote;
    return quoted;
}

}  // namespace brushworks::tools
