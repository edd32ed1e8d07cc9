// The lists of extensions in which EGL and OpenGL answer.
#pragma once

#include <string_view>

namespace brushworks::host::gl {

/// Whether a blank-separated list, which may be null, holds the name as a whole word.
inline bool listHolds(const char* list, std::string_view name) {
    std::string_view rest = list != nullptr ? list : "";
    while (!rest.empty()) {
        const std::string_view word = rest.substr(0, rest.find(' '));
        if (word == name) return true;
        rest.remove_prefix(word.size() < rest.size() ? word.size() + 1 : rest.size());
    }
    return false;
}

}  // namespace brushworks::host::gl
