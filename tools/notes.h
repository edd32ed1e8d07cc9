// Remarks for the user that are no errors.
#pragma once

#include <cstdio>
#include <string>

namespace brushworks::tools {

/// Writes to standard error, or nothing when the user wants quiet.
class Notes {
  public:
    explicit Notes(bool quiet) : m_bQuiet(quiet) {}
    void operator()(const std::string& text) const {
        if (!m_bQuiet) std::fprintf(stderr, "brushworks: note: %s\n", text.c_str());
    }

  private:
    bool m_bQuiet;
};

}  // namespace brushworks::tools
