// The commands by which shells complete: the scripts that they load, and the answers to them.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "completion.h"

namespace brushworks::tools {

/// The shells that there is a script for.
const std::vector<std::string>& completionShells();

/// Writes the script for one of completionShells().
void writeCompletionScript(const std::string& shell, std::ostream& out);

/// Answers the script of the first of `words`, a shell: a line with the kind of what may follow,
/// then a line for each candidate. For bash come the typed piece that readline replaces and the
/// words as they are typed; for others the words without quotes. What goes wrong gives no answer:
/// nobody waits for a message while typing.
void answerCompletion(const CLI::App& app, const std::function<host::Library()>& library,
                      const std::vector<std::string>& words, std::ostream& out);

}  // namespace brushworks::tools
