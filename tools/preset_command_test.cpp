// `preset save`, `preset show`, and `paint` from a preset file.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "host/library.h"
#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

using ::testing::AllOf;
using testing::CommandTest;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::readFile;
using testing::Result;
using testing::writeFile;

using Names = std::set<std::string>;
using Words = std::vector<std::string>;

class PresetCommand : public CommandTest {
  protected:
    Result save(const std::string& effect, const std::string& output, const Words& more = {}) {
        Words words = {"preset", "save", effect, "-o", output};
        words.insert(words.end(), more.begin(), more.end());
        return run(words);
    }
    nlohmann::json shown(const std::string& file) {
        const Result result = run({"preset", "show", file, "--json"});
        EXPECT_EQ(result.status, 0) << result.err;
        return nlohmann::json::parse(result.out);
    }
    /// Puts `to` in the place of the first `from` in a file.
    void edit(const std::string& file, const std::string& from, const std::string& to) const {
        std::string text = readFile(path(file));
        const std::size_t place = text.find(from);
        ASSERT_NE(place, std::string::npos) << text;
        writeFile(path(file), text.replace(place, from.size(), to));
    }
};

TEST_F(PresetCommand, PaintsFromAFileAsFromThePresetOfThatName) {
    testing::makeColors(path("in.png"), 37, 23);
    const Result saved = save("posterize", "subdued.fxpbwkk", {"-p", "subdued"});
    ASSERT_EQ(saved.status, 0) << saved.err;
    EXPECT_THAT(saved.out + saved.err, IsEmpty());
    const std::vector<Words> settings = {{}, {"-s", "Levels=5", "-s", "color=30"}};
    for (const Words& values : settings) {
        Words named = {"-f", "-p", "Subdued"};
        Words filed = {"-f", "--preset-file", "subdued.fxpbwkk"};
        named.insert(named.end(), values.begin(), values.end());
        filed.insert(filed.end(), values.begin(), values.end());
        ASSERT_EQ(paint("in.png", "named.png", named).status, 0);
        const Result result = paint("in.png", "filed.png", filed);
        ASSERT_EQ(result.status, 0) << result.err;
        EXPECT_THAT(result.out + result.err, IsEmpty());
        EXPECT_EQ(readFile(path("filed.png")), readFile(path("named.png")));
    }
    ASSERT_EQ(paint("in.png", "plain.png").status, 0);
    EXPECT_NE(readFile(path("filed.png")), readFile(path("plain.png")));
}

TEST_F(PresetCommand, ShowsWhatWasSaved) {
    const Words values = {"-p", "night", "-s", "density=12.5", "-s", "Contrast=-7"};
    ASSERT_EQ(save("CARTOON", "mine.fxpbwka", values).status, 0);
    host::Effect effect = host::Library::load().open("cartoon");
    effect.applyPreset("Night");
    effect.set("Density", "12.5");
    effect.set("Contrast", "-7");

    const nlohmann::json json = shown("mine.fxpbwka");
    EXPECT_EQ(json["name"], "Night");
    EXPECT_EQ(json["library"], "Lumenfold Brushworks");
    EXPECT_EQ(json["effect"], "Toonery Plus");
    EXPECT_EQ(json["id"], "cartoon");
    std::size_t count = 0;
    for (const host::ParameterInfo& parameter : effect.info().parameters) {
        if (!parameter.hasValue()) continue;
        ++count;
        EXPECT_EQ(json["values"][parameter.address].dump(), effect.text(parameter.address));
    }
    EXPECT_EQ(json["values"].size(), count);

    const Result result = run({"preset", "show", "mine.fxpbwka"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, IsEmpty());
    EXPECT_THAT(result.out, AllOf(HasSubstr("Preset   Night\nEffect   Toonery Plus (cartoon)\n"
                                            "Library  Lumenfold Brushworks\n"),
                                  HasSubstr("\nLines:\n  Density      slider  12.5\n"),
                                  HasSubstr("\n  Contrast     slider  -7\n")));
}

TEST_F(PresetCommand, NamesThePresetAndTellsWhatHostsLookFor) {
    const Result elsewhere = save("oil", "Thick strokes.xml", {"-s", "Blend=10"});
    EXPECT_EQ(elsewhere.status, 0);
    EXPECT_THAT(elsewhere.err, HasSubstr("note: hosts look for presets of Oil in files that end in "
                                         ".fxpbwkh\n"));
    EXPECT_EQ(shown("Thick strokes.xml")["name"], "Thick strokes");
    EXPECT_THAT(save("oil", "a.fxpbwkh", {"-p", "dark", "--name", "Öl & \"Light\""}).err,
                IsEmpty());
    EXPECT_EQ(shown("a.fxpbwkh")["name"], "Öl & \"Light\"");
}

TEST_F(PresetCommand, ShowsTheStoredValuesOfWhatItDoesNotKnow) {
    writeFile(path("other.fxp"),
              "<?xml version='1.0'?>"
              "<Preset Name='&#x9B;1m' LibraryName='Other' EffectName='Sketch'>"
              "<parameter type='5'/><parameter type='2' value='0.25'/><parameter type='6'/>"
              "<parameter type='0' x='0.5' y='1e30'/><parameter type='1' value='-3'/>"
              "<parameter type='3' value='255'/><parameter type='4' value='1'/>"
              "<parameter type='9' value='1'/></Preset>");
    const Result result = run({"preset", "show", "other.fxp"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("no such effect here"));
    EXPECT_THAT(result.out,
                AllOf(HasSubstr("Preset   \\u009b1m\nEffect   Sketch\nLibrary  Other\n"),
                      HasSubstr("  2  slider     0.25\n"),
                      HasSubstr("  4  point      0.5,1.0000000150474662e+30\n"),
                      HasSubstr("  5  list       -3\n"), HasSubstr("  6  colour     #ff0000\n"),
                      HasSubstr("  7  check box  on\n"), HasSubstr("  8  unknown    \n")));
    const nlohmann::json json = shown("other.fxp");
    EXPECT_FALSE(json.contains("id"));
    EXPECT_EQ(json["parameters"].size(), 8U);
    EXPECT_EQ(json["parameters"][1].dump(), R"({"type":"slider","value":0.25})");
    EXPECT_EQ(json["parameters"][6]["value"], true);

    // An effect that it knows, in a file that does not fit it.
    ASSERT_EQ(save("posterize", "old.fxpbwkk").status, 0);
    edit("old.fxpbwkk", "type=\"1\"", "type=\"2\"");
    const Result old = run({"preset", "show", "old.fxpbwkk"});
    EXPECT_EQ(old.status, 0);
    EXPECT_THAT(old.err,
                HasSubstr("parameter 4, \"Levels\", is a list, but the file has a slider"));
    EXPECT_THAT(old.out, AllOf(HasSubstr("Effect   Posterize\n"), HasSubstr("  4  slider  0\n")));
}

TEST_F(PresetCommand, RefusesFilesThatDoNotFit) {
    testing::makePicture(path("in.png"), 16, 16, false);
    ASSERT_EQ(save("oil", "oil.fxpbwkh").status, 0);
    ASSERT_EQ(save("posterize", "other.fxpbwkk").status, 0);
    ASSERT_EQ(save("posterize", "old.fxpbwkk").status, 0);
    edit("other.fxpbwkk", "Lumenfold", "Other");
    edit("old.fxpbwkk", "type=\"1\"", "type=\"2\"");
    writeFile(path("damaged"), readFile(path("oil.fxpbwkh")).substr(0, 300));
    const Names before = files();
    const auto expectRefusal = [&](const char* file, int status, const char* message) {
        const Result result = paint("in.png", "out.png", {"--preset-file", file});
        EXPECT_EQ(result.status, status) << file;
        EXPECT_THAT(result.err, HasSubstr(message));
    };
    expectRefusal("oil.fxpbwkh", 2, "for the effect \"Oil\", not for \"Posterize\"");
    expectRefusal("other.fxpbwkk", 2, "\"Other Brushworks\", not for \"Lumenfold Brushworks\"");
    expectRefusal("old.fxpbwkk", 1, "does not fit this version of Posterize: parameter 4");
    expectRefusal("damaged", 1, "damaged is no preset file, or it is damaged");
    expectRefusal("in.png", 1, "in.png is no preset file");
    expectRefusal("gone", 1, "cannot read gone: No such file");
    expectRefusal("", 2, "--preset-file: it names no file");
    const Result both =
        paint("in.png", "out.png", {"--preset-file", "oil.fxpbwkh", "-p", "Subdued"});
    EXPECT_EQ(both.status, 2);
    EXPECT_THAT(both.err, HasSubstr("excludes"));
    EXPECT_EQ(run({"preset", "show", "damaged"}).status, 1);
    EXPECT_THAT(run({"preset", "show", "gone", "--json"}).out, IsEmpty());
    EXPECT_EQ(files(), before);
}

TEST_F(PresetCommand, SavesWithoutATraceWhereItFails) {
    writeFile(path("kept.fxpbwkh"), "precious");
    const Names before = files();
    const auto expectFailure = [&](const Words& words, int status, const char* message) {
        Words all = {"preset", "save"};
        all.insert(all.end(), words.begin(), words.end());
        const Result result = run(all);
        EXPECT_EQ(result.status, status) << ::testing::PrintToString(words);
        EXPECT_THAT(result.err, HasSubstr(message));
        EXPECT_THAT(result.out, IsEmpty());
    };
    expectFailure({"oil", "-o", "kept.fxpbwkh"}, 1, "kept.fxpbwkh exists; --force replaces it");
    expectFailure({"oil", "-o", "."}, 1, "is a folder");
    expectFailure({"oil", "-o", "missing/a.fxpbwkh"}, 1, "cannot write missing/a.fxpbwkh");
    expectFailure({"oil"}, 2, "--output is required");
    expectFailure({"oli", "-o", "a"}, 2, "did you mean \"oil\"?");
    expectFailure({"oil", "-o", "a", "-p", "Drak"}, 2, "did you mean \"Dark\"?");
    expectFailure({"oil", "-o", "a", "-s", "Blend=101"}, 2, "a number from");
    expectFailure({"oil", "-o", "a", "-s", "Blend"}, 2, "NAME=VALUE");
    expectFailure({"oil", "-o", "a", "-s", "Blend=1@0s,2@1s"}, 2, "a value without @TIME");
    expectFailure({"oil", "-o", "a", "--name", "\x1B[2J"}, 2,
                  "the name of the preset, \"\\x1b[2J\"");
    expectFailure({"oil", "-o", "kept.fxpbwkh", "-f", "--name", std::string(260, 'x')}, 2,
                  "at most 259 bytes");
    EXPECT_EQ(files(), before);
    EXPECT_EQ(readFile(path("kept.fxpbwkh")), "precious");

    EXPECT_EQ(save("oil", "kept.fxpbwkh", {"--force"}).status, 0);
    EXPECT_EQ(shown("kept.fxpbwkh")["effect"], "Oil");
    EXPECT_EQ(files(), before);
}

TEST_F(PresetCommand, OnePageOfHelpTellsAll) {
    const Result help = run({"preset", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* word : {"save", "show", "EFFECT", "--preset", "--set", "--name", "--output",
                             "--force", "--json"}) {
        EXPECT_THAT(help.out, HasSubstr(word));
    }
    EXPECT_EQ(run({"preset"}).status, 2);
    EXPECT_EQ(run({"preset", "shw", "a"}).status, 2);
}

}  // namespace
}  // namespace brushworks::tools
