// What may follow on a half typed command line.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "host/library.h"

namespace brushworks::tools {

/// What may stand in place of the last word.
struct Completion {
    enum class Kind { Words, Files, Folders };
    struct Candidate {
        std::string word;  ///< the whole of it; one that ends in "=" goes on
        std::string help;  ///< one line, or ""
    };

    Kind kind = Kind::Words;
    std::vector<Candidate> candidates;  ///< of kind Words, those that the typed one begins
};

/// Completes the last of `words`, which follow the name of the program and hold no quotes. The
/// library is asked for where an effect's names are wanted. Throws host::Error.
Completion complete(const CLI::App& app, const std::function<host::Library()>& library,
                    const std::vector<std::string>& words);

}  // namespace brushworks::tools
