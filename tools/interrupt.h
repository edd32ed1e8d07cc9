// What happens to an unfinished output when a signal ends the program.
#pragma once

#include <string>

namespace brushworks::tools {

/// From here on the signals that end a program from outside, and an abort, remove the file first,
/// or the folder with the files in it. One at a time.
void removeOnInterrupt(const std::string& path);

/// Signals leave it alone again.
void keepOnInterrupt();

}  // namespace brushworks::tools
