// Quotes and backslashes by the rules of the shell.
#include "bash_word.h"

namespace brushworks::tools {
namespace {

constexpr std::string_view kSpecialInDoubleQuotes = "\"$`\\";
constexpr std::string_view kPlain =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./,:+=@%";

bool isPlain(char c) {
    // Bytes of other alphabets mean nothing to a shell.
    return kPlain.find(c) != std::string_view::npos || static_cast<unsigned char>(c) >= 0x80;
}

}  // namespace

BashWord readBashWord(std::string_view typed) {
    BashWord word;
    for (std::size_t i = 0; i < typed.size(); ++i) {
        const char c = typed[i];
        const bool mark = c == '\'' || c == '"';
        if (mark && word.quote == 0) {
            word.quote = c;
        } else if (c == word.quote) {
            word.quote = 0;
        } else if (c == '\\' && word.quote != '\'' && i + 1 < typed.size()) {
            const char next = typed[++i];
            const bool kept =
                word.quote == '"' && kSpecialInDoubleQuotes.find(next) == std::string_view::npos;
            if (kept) word.text += c;
            word.text += next;
        } else {
            word.text += c;
        }
    }
    return word;
}

std::string typeInBash(std::string_view text, char quote) {
    std::string typed;
    for (const char c : text) {
        if (quote == '\'' && c == '\'') {
            typed += "'\\''";
            continue;
        }
        const bool escaped = quote == '"' ? kSpecialInDoubleQuotes.find(c) != std::string_view::npos
                                          : quote == 0 && !isPlain(c);
        if (escaped) typed += '\\';
        typed += c;
    }
    return typed;
}

}  // namespace brushworks::tools
