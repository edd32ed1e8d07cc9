// Asks the argument library.
#include "command_table.h"

#include <algorithm>

#include "host/names.h"

namespace brushworks::tools {
namespace {

constexpr char kBetweenChoices = '|';

bool isShown(const CLI::Option& option) {
    return !option.get_group().empty();
}

/// Without what checks of the value say of themselves, behind a colon.
std::string typeName(const CLI::Option& option) {
    const std::string name = option.get_type_name();
    return name.substr(0, name.find(':'));
}

}  // namespace

std::vector<const CLI::App*> shownCommands(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App* command) {
        return !command->get_group().empty() && !command->get_name().empty();
    });
}

const CLI::App* findCommand(const CLI::App& app, const std::string& name) {
    const auto found =
        app.get_subcommands([&](const CLI::App* command) { return command->get_name() == name; });
    return found.empty() ? nullptr : found.front();
}

std::vector<const CLI::Option*> operands(const CLI::App& app) {
    return app.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

std::vector<const CLI::Option*> namedOptions(const CLI::App& app) {
    return app.get_options(
        [](const CLI::Option* option) { return !option->get_positional() && isShown(*option); });
}

const CLI::Option* findOption(const CLI::App& app, const std::string& name) {
    if (name.size() < 2 || name[0] != '-') return nullptr;
    return app.get_option_no_throw(name);
}

std::string longName(const CLI::Option& option) {
    if (!option.get_lnames().empty()) return "--" + option.get_lnames().front();
    return option.get_snames().empty() ? "" : "-" + option.get_snames().front();
}

bool takesWord(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

std::string valueKind(const CLI::Option& option) {
    return option.get_positional() ? option.get_name(true) : typeName(option);
}

std::vector<std::string> choices(const CLI::Option& option) {
    const std::string kind = typeName(option);
    const bool words = std::all_of(kind.begin(), kind.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || c == kBetweenChoices;
    });
    return words && !kind.empty() ? CLI::detail::split(kind, kBetweenChoices)
                                  : std::vector<std::string>();
}

CLI::Option* limitTo(CLI::Option* option, const std::vector<std::string>& words) {
    const auto check = [words](const std::string& typed) -> std::string {
        if (std::find(words.begin(), words.end(), typed) != words.end()) return "";
        return host::unknownName("value", typed, words);
    };
    return option->type_name(CLI::detail::join(words, std::string(1, kBetweenChoices)))
        ->check(CLI::Validator(check, ""));
}

}  // namespace brushworks::tools
