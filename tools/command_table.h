// The table of commands and options as those read it who print it or search in it. The argument
// library keeps the table; an option's type name tells what kind of value it takes.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace brushworks::tools {

// Kinds of values that more is known of than their names.
constexpr char kEffectKind[] = "EFFECT";
constexpr char kPresetKind[] = "PRESET";
constexpr char kSettingKind[] = "NAME=VALUE";
constexpr char kCodecKind[] = "CODEC";
constexpr char kFileKind[] = "FILE";
constexpr char kInputKind[] = "INPUT";
constexpr char kFolderKind[] = "FOLDER";

/// The commands below `app` that are shown, in their order.
std::vector<const CLI::App*> shownCommands(const CLI::App& app);
/// The command below `app` of that name, or null.
const CLI::App* findCommand(const CLI::App& app, const std::string& name);

/// What stands without a name on the command line.
std::vector<const CLI::Option*> operands(const CLI::App& app);
/// All others that are shown.
std::vector<const CLI::Option*> namedOptions(const CLI::App& app);
/// The option that `name` names, with its hyphens, or null.
const CLI::Option* findOption(const CLI::App& app, const std::string& name);

/// "--output", or "-x" of an option that has no long name.
std::string longName(const CLI::Option& option);
/// Whether the next word is the option's value; a flag takes one behind "=" at most.
bool takesWord(const CLI::Option& option);
/// The kind of its value, such as kFileKind, "N" or "bar|kv|none"; "" for a flag without any.
std::string valueKind(const CLI::Option& option);
/// The words that it takes, or none where it takes others too.
std::vector<std::string> choices(const CLI::Option& option);

/// Lets the option take these words alone; a wrong one is answered with the nearest.
CLI::Option* limitTo(CLI::Option* option, const std::vector<std::string>& words);

}  // namespace brushworks::tools
