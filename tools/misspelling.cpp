// Looks among the names that the word could have been.
#include "misspelling.h"

#include <algorithm>

#include "command_table.h"
#include "host/names.h"

namespace brushworks::tools {
namespace {

bool isOption(const std::string& word) {
    return word.size() > 1 && word[0] == '-';
}

/// The command that the line names, as far as it is known.
const CLI::App& innermost(const CLI::App& app) {
    const CLI::App* command = &app;
    while (!command->get_subcommands().empty()) command = command->get_subcommands().back();
    return *command;
}

std::string fullName(const CLI::App& command) {
    const CLI::App* parent = command.get_parent();
    return (parent != nullptr ? fullName(*parent) + " " : "") + command.get_name();
}

std::string unknownOption(const CLI::App& command, const std::string& word) {
    const std::string typed = word.substr(0, word.find('='));
    std::vector<std::string> names;
    for (const CLI::Option* option : namedOptions(command)) names.push_back(longName(*option));
    // Two hyphens make short names look alike.
    const bool isLong = typed.starts_with("--");
    const std::string nearest = isLong ? host::didYouMean(typed, names) : "";
    return fullName(command) + " has no option \"" + typed + "\"" +
           (nearest.empty() ? ";" : nearest) + " --help lists those that it has";
}

std::string unknownCommand(const CLI::App& command, const std::string& word) {
    std::vector<std::string> names;
    for (const CLI::App* known : shownCommands(command)) names.push_back(known->get_name());
    return host::unknownName("command", word, names);
}

}  // namespace

std::string unknownWord(const CLI::App& app) {
    const std::vector<std::string> words = app.remaining(/*recurse=*/true);
    if (words.empty()) return "";
    const CLI::App& command = innermost(app);
    // A word without a hyphen may be the value of an option that was not known.
    const auto option = std::find_if(words.begin(), words.end(), isOption);
    if (option != words.end()) return unknownOption(command, *option);
    if (!shownCommands(command).empty()) return unknownCommand(command, words.front());
    return fullName(command) + " has no use for \"" + words.front() + "\"";
}

}  // namespace brushworks::tools
