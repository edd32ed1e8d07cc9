// The manual page, made from the table of commands and from the library.
#pragma once

#include <CLI/CLI.hpp>
#include <ostream>

#include "host/library.h"

namespace brushworks::tools {

/// Writes brushworks(1) in the macros of man(7).
void writeManual(const CLI::App& app, const host::Library& library, std::ostream& out);

}  // namespace brushworks::tools
