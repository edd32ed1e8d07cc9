// What is said to the user on standard error.
#pragma once

#include <iostream>
#include <string>
#include <string_view>

#include "host/printable.h"

namespace brushworks::tools {

/// Says one line, whatever names stand in it, at once.
inline void say(std::string_view text) {
    std::cerr << "brushworks: " + host::printable(text) + '\n';
}

/// Remarks that are no errors; nothing when the user wants quiet.
class Notes {
  public:
    explicit Notes(bool quiet) : m_bQuiet(quiet) {}
    void operator()(const std::string& text) const {
        if (!m_bQuiet) say("note: " + text);
    }

  private:
    bool m_bQuiet;
};

}  // namespace brushworks::tools
