// The subcommand that tells the encoders.
#pragma once

#include <iosfwd>

namespace brushworks::tools {

/// Writes the table of encoders: names, what their quality means, which files hold them.
void listCodecs(std::ostream& out);

}  // namespace brushworks::tools
