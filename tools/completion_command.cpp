// Speaks with the scripts in tools/shell.
#include "completion_command.h"

#include "bash_word.h"
#include "completion_texts.h"
#include "host/error.h"

namespace brushworks::tools {
namespace {

constexpr char kBash[] = "bash";
constexpr char kZsh[] = "zsh";

void writeKind(Completion::Kind kind, std::ostream& out) {
    constexpr const char* kWords[] = {"words\n", "files\n", "folders\n"};
    out << kWords[static_cast<int>(kind)];
}

/// `words` are as typed; of the last one readline replaces the `piece` at its end.
void answerBash(const CLI::App& app, const std::function<host::Library()>& library,
                const std::string& piece, const std::vector<std::string>& words,
                std::ostream& out) {
    std::vector<std::string> plain;
    plain.reserve(words.size());
    for (const std::string& word : words) plain.push_back(readBashWord(word).text);
    const std::string& last = words.back();
    const std::string kept = last.substr(0, last.size() - std::min(piece.size(), last.size()));
    const std::size_t skipped = readBashWord(kept).text.size();
    const char quote = readBashWord(piece).quote;

    const Completion completion = complete(app, library, plain);
    writeKind(completion.kind, out);
    for (const Completion::Candidate& candidate : completion.candidates) {
        out << typeInBash(candidate.word.substr(skipped), quote) << '\n';
    }
}

void answerZsh(const CLI::App& app, const std::function<host::Library()>& library,
               const std::vector<std::string>& words, std::ostream& out) {
    const Completion completion = complete(app, library, words);
    writeKind(completion.kind, out);
    for (const Completion::Candidate& candidate : completion.candidates) {
        out << candidate.word << '\t' << candidate.help << '\n';
    }
}

}  // namespace

const std::vector<std::string>& completionShells() {
    static const std::vector<std::string> shells = {kBash, kZsh};
    return shells;
}

void writeCompletionScript(const std::string& shell, std::ostream& out) {
    out << (shell == kBash ? kBashCompletion : kZshCompletion);
}

void answerCompletion(const CLI::App& app, const std::function<host::Library()>& library,
                      const std::vector<std::string>& words, std::ostream& out) {
    if (words.size() < 2) return;
    const std::vector<std::string> rest(words.begin() + 1, words.end());
    try {
        if (words[0] == kBash && rest.size() > 1) {
            answerBash(app, library, rest[0], {rest.begin() + 1, rest.end()}, out);
        }
        if (words[0] == kZsh) answerZsh(app, library, rest, out);
    } catch (const host::Error&) {
        return;
    }
}

}  // namespace brushworks::tools
