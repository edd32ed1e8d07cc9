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
    const std::string nearest = typed.starts_with("--") ? host::didYouMean(typed, names) : "";
    return "no option \"" + typed + "\"" + (nearest.empty() ? ";" : nearest) + " '" +
           fullName(command) + " --help' lists them";
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
    const auto option = std::find_if(words.begin(), words.end(), isOption);
    if (!shownCommands(command).empty()) {
        const auto name = std::find_if_not(words.begin(), words.end(), isOption);
        if (name != words.end()) return unknownCommand(command, *name);
    }
    // A word without a hyphen may be the value of an option that is not known.
    if (option != words.end()) return unknownOption(command, *option);
    return "'" + fullName(command) + "' has no use for \"" + words.front() + "\"";
}

}  // namespace brushworks::tools
