// What happens to an unfinished file when a signal ends the program.
#pragma once

#include <string>

namespace brushworks::tools {

/// From here on the signals that end a program from outside, and an abort, remove the file first.
/// One file at a time.
void removeOnInterrupt(const std::string& path);

/// Signals leave the file alone again.
void keepOnInterrupt();

}  // namespace brushworks::tools
