#include "panels/dialog_program.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string_view>

#include "panels/child_process.h"
#include "panels/chosen_path.h"

namespace brushworks {
namespace {

// Values stand in the word of their option, so that none can become an option of its own.

/// Where a chooser starts: a folder ends in a slash, since a program takes it for a file otherwise.
std::string StartOf(const FileRequest& request) {
    std::string start = request.folder.starts_with('/') ? request.folder : "./" + request.folder;
    if (!start.ends_with('/')) start += '/';
    return start + request.name;
}

Arguments ZenityParent(WindowId parent, Manner manner) {
    if (parent == 0 || manner == Manner::kPlain) return {};
    return {"--modal", "--attach=" + std::to_string(parent)};
}

Arguments ZenityChoose(WindowId parent, Purpose purpose, const FileRequest& request,
                       Manner manner) {
    Arguments arguments = ZenityParent(parent, manner);
    arguments.push_back("--file-selection");
    arguments.push_back(std::string("--title=") + TitleOf(purpose));
    if (purpose == Purpose::kSave) arguments.push_back("--save");
    if (purpose == Purpose::kSave && manner == Manner::kFull)
        arguments.push_back("--confirm-overwrite");
    arguments.push_back("--filename=" + StartOf(request));
    arguments.push_back("--file-filter=*." + request.extension);
    return arguments;
}

Arguments ZenityAlert(WindowId parent, const AlertTexts& texts, Manner manner) {
    Arguments arguments = ZenityParent(parent, manner);
    arguments.insert(arguments.end(), {"--error", "--no-markup", "--title=" + texts.title,
                                       "--text=" + texts.text, "--ok-label=" + texts.button});
    return arguments;
}

/// kdialog reads backslashes in texts and filters as the start of an escape.
std::string KDialogText(const std::string& text) {
    std::string escaped;
    for (const char character : text) {
        if (character == '\\') escaped += '\\';
        escaped += character;
    }
    return escaped;
}

Arguments KDialogParent(WindowId parent) {
    if (parent == 0) return {};
    return {"--attach=" + std::to_string(parent)};
}

Arguments KDialogChoose(WindowId parent, Purpose purpose, const FileRequest& request, Manner) {
    Arguments arguments = KDialogParent(parent);
    arguments.insert(arguments.end(),
                     {purpose == Purpose::kSave ? "--getsavefilename" : "--getopenfilename", "--",
                      StartOf(request), KDialogText("*." + request.extension)});
    return arguments;
}

Arguments KDialogAlert(WindowId parent, const AlertTexts& texts, Manner) {
    Arguments arguments = KDialogParent(parent);
    arguments.insert(arguments.end(),
                     {"--title=" + texts.title, "--error=" + KDialogText(texts.text)});
    return arguments;
}

/// The value of a variable, or null where it is not set or empty.
const char* Find(const std::vector<std::string>& entries, std::string_view name) {
    for (const std::string& entry : entries)
        if (entry.size() > name.size() + 1 && entry.starts_with(name) && entry[name.size()] == '=')
            return entry.c_str() + name.size() + 1;
    return nullptr;
}

void Put(std::vector<std::string>& entries, const std::string& name, const std::string& value) {
    std::erase_if(entries,
                  [&name](const std::string& entry) { return entry.starts_with(name + "="); });
    entries.push_back(name + "=" + value);
}

bool NamesUTF8(std::string locale) {
    std::transform(locale.begin(), locale.end(), locale.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return locale.find(".utf-8") != std::string::npos || locale.find(".utf8") != std::string::npos;
}

std::vector<std::string> OwnEnvironment() {
    std::vector<std::string> entries;
    for (char** entry = environ; entry && *entry; ++entry) entries.emplace_back(*entry);
    return entries;
}

/// zenity's for "no such option", everybody's for "could not be started".
bool WasRefused(const ProcessResult& result) {
    return !result.started || result.status == 255 || result.status == 127 || result.status == 126;
}

/// Runs the program as `arguments` asks in full, and in the plain manner where that was refused.
template <class MakeArguments>
ProcessResult RunDialog(const char* name, MakeArguments arguments) {
    const char* path = std::getenv("PATH");
    const std::string program = FindProgram(name, path ? path : "");
    if (program.empty()) return {};
    const std::vector<std::string> environment = InUTF8(OwnEnvironment());
    const Arguments full = arguments(Manner::kFull);
    const Arguments plain = arguments(Manner::kPlain);
    ProcessResult result = RunProgram(program, full, environment);
    if (!WasRefused(result) || plain == full) return result;
    return RunProgram(program, plain, environment);
}

constexpr DialogWords kZenity = {"zenity", ZenityChoose, ZenityAlert};
constexpr DialogWords kKDialog = {"kdialog", KDialogChoose, KDialogAlert};

}  // namespace

const DialogWords& ZenityWords() {
    return kZenity;
}

const DialogWords& KDialogWords() {
    return kKDialog;
}

std::vector<std::string> InUTF8(std::vector<std::string> entries) {
    const char* locale = Find(entries, "LC_ALL");
    if (!locale) locale = Find(entries, "LC_CTYPE");
    if (!locale) locale = Find(entries, "LANG");
    if (!locale || !NamesUTF8(locale)) Put(entries, "LC_ALL", "C.UTF-8");
    // GLib's own, for a locale that is named but not installed.
    Put(entries, "CHARSET", "UTF-8");
    return entries;
}

Attempt DialogProgram::Choose(WindowId parent, Purpose purpose, const FileRequest& request) {
    const ProcessResult result = RunDialog(m_words.program, [&](Manner manner) {
        return m_words.choose(parent, purpose, request, manner);
    });
    if (WasRefused(result)) return {};
    // Without a status the output alone tells: programs write a path only when it was confirmed.
    if (result.status.value_or(0) != 0) return {true, std::nullopt};
    return {true, PathOfOutput(result.output)};
}

bool DialogProgram::Alert(WindowId parent, const AlertTexts& texts) {
    return !WasRefused(RunDialog(
        m_words.program, [&](Manner manner) { return m_words.alert(parent, texts, manner); }));
}

}  // namespace brushworks
