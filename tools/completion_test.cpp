// What shells complete, what slips are answered with, and the manual page.
#include <gmock/gmock.h>
#include <stdio.h>

#include <sstream>

#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

using testing::CommandTest;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::Result;
using Lines = std::vector<std::string>;

class Completion : public CommandTest {};
class Misspelling : public CommandTest {};
class Manual : public CommandTest {};

/// What a shell command writes, line by line.
Lines outputOf(const std::string& command) {
    Lines lines;
    FILE* pipe = popen(command.c_str(), "r");
    std::string text;
    for (int c; (c = fgetc(pipe)) != EOF;) text += static_cast<char>(c);
    pclose(pipe);
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

bool isInstalled(const std::string& program) {
    return !outputOf("command -v " + program).empty();
}

TEST_F(Completion, BashCompletesTheLastWord) {
    testing::writeFile(path("script"), run({"completion", "bash"}).out);
    // Words as readline cuts them, in the quotes of an array.
    const auto completed = [&](const std::string& words) {
        testing::writeFile(path("try"),
                           "source " + path("script") + "; COMP_WORDS=(" + BRUSHWORKS_TOOL + " " +
                               words +
                               ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_brushworks\n"
                               "printf '%s\\n' \"${COMPREPLY[@]}\"\n");
        return outputOf("bash --norc " + path("try"));
    };
    EXPECT_THAT(completed("pai"), ElementsAre("paint"));
    EXPECT_THAT(completed("preset ''"), ElementsAre("save", "show"));
    EXPECT_THAT(completed("paint in.png --be"), ElementsAre("--before-after"));
    EXPECT_THAT(completed("paint in.png -o out.png --out"), ElementsAre(""));
    EXPECT_THAT(completed("paint --effect = '\"Toon'"), ElementsAre("Toonery Plus"));
    EXPECT_THAT(completed("paint --progress ="), ElementsAre("bar", "kv", "none"));
    EXPECT_THAT(completed("paint -fqe posterize -p off"), ElementsAre("Offset\\ Printing"));
    EXPECT_THAT(completed("paint -eposterize -p \"'Off\""), ElementsAre("Offset Printing"));
    EXPECT_THAT(completed("preset save posterize -p Offset\\\\\\ P"),
                ElementsAre("Offset\\ Printing"));
    EXPECT_THAT(completed("paint -e posterize -s color"), ElementsAre("Color\\ Shift=", "Color="));
    EXPECT_THAT(completed("paint -e posterize -s dither = opt"), Contains("Option\\ B").Times(1));
    EXPECT_THAT(completed("paint -e posterize -s dither = '\"Option B'"), ElementsAre("Option B"));
    EXPECT_THAT(completed("paint -e nothing -p ''"), ElementsAre(""));
}

TEST_F(Completion, ZshIsGivenWholeWords) {
    if (!isInstalled("zsh")) GTEST_SKIP() << "there is no zsh here";
    testing::writeFile(path("script"), run({"completion", "zsh"}).out);
    const auto completed = [&](const std::string& words, const std::string& prefix) {
        testing::writeFile(path("try"),
                           "compdef() {}; compadd() { print -l -- ${(P)@[-1]} }\n"
                           "_files() { print files }; compset() {}\nsource " +
                               path("script") + "\nwords=(" + BRUSHWORKS_TOOL + " " + words +
                               " x) CURRENT=$#words PREFIX=" + prefix + "\n_brushworks\n");
        return outputOf("zsh -f " + path("try"));
    };
    EXPECT_THAT(completed("paint -e posterize -p", "'Offset\\ '"), Contains("Offset Printing"));
    EXPECT_THAT(completed("paint -e '\"Water Color\"' -s", "col"), Contains("Color="));
    EXPECT_THAT(completed("paint -e posterize -s", "dither=Opt"), Contains("dither=Option C"));
    EXPECT_THAT(completed("paint", "exa"), ElementsAre("files"));
}

TEST_F(Misspelling, IsAnsweredWithTheNearestName) {
    testing::makePicture(path("in.png"), 8, 8, false);
    const std::vector<std::pair<Lines, const char*>> slips = {
        {{"pinat"}, "did you mean \"paint\""},
        {{"preset", "shwo"}, "did you mean \"show\""},
        {{"lst", "--json"}, "did you mean \"list\""},
        {{"paint", "in.png", "--outptu", "out.png"}, "did you mean \"--output\""},
        {{"paint", "in.png", "--progress=vk"}, "did you mean \"kv\""},
        {{"paint", "in.png", "-e", "Water Colour", "-o", "out.pgn"}, "did you mean \"png\""},
        {{"paint", path("in.png"), "-e", "oil", "-o", "out.webp", "--codec", "wepb"}, "\"webp\"?"},
        {{"info", "Aurascop Plus"}, "did you mean \"Aurascope Plus\""},
    };
    for (const auto& [arguments, answer] : slips) {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, 2) << answer;
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_THAT(result.err, HasSubstr(answer));
    }
    EXPECT_THAT(run({"paint", "in.png", "--sculpt"}).err, Not(HasSubstr("did you mean")));
}

TEST_F(Manual, IsSoundAndTellsEveryOption) {
    const std::string page = run({"manual"}).out;
    std::istringstream help(run({"paint", "--help"}).out);
    for (std::string word; help >> word;) {
        if (!word.starts_with("--") || word.starts_with("--help")) continue;
        std::string escaped;
        for (const char c : word.substr(0, word.find_first_of(",.{"))) {
            escaped += c == '-' ? "\\-" : std::string(1, c);
        }
        EXPECT_THAT(page, HasSubstr(escaped));
    }
    if (!isInstalled("groff")) GTEST_SKIP() << "there is no groff here";
    testing::writeFile(path("page"), page);
    EXPECT_THAT(outputOf("groff -man -Tutf8 -ww -z " + path("page") + " 2>&1"), IsEmpty());
}

}  // namespace
}  // namespace brushworks::tools
