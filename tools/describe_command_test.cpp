// The command line as a program: exit statuses, messages, list and info.
#include <gmock/gmock.h>

#include <algorithm>
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
using ::testing::Not;
using testing::Result;
using ::testing::StartsWith;

class Describe : public CommandTest {};

TEST_F(Describe, ListsTwelveLines) {
    const Result result = run({"list"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 12);
    EXPECT_THAT(result.out, AllOf(HasSubstr("0  cartoon         Toonery Plus\n"),
                                  HasSubstr("11  water-color     Water Color\n")));
    EXPECT_THAT(result.err, IsEmpty());
}

TEST_F(Describe, TellsParametersAndPresets) {
    const Result result = run({"info", "CARTOON"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, AllOf(HasSubstr("Toonery Plus"), HasSubstr("Lines:\n"),
                                  HasSubstr("-100 to 100"), HasSubstr("Presets\n")));
    EXPECT_THAT(run({"info", "paper-collage"}).out,
                AllOf(HasSubstr("Shadow#2"), HasSubstr("#7f7f7f")));
}

/// What --set takes for a value of the JSON.
std::string typed(const nlohmann::json& value) {
    if (value.is_boolean()) return value.get<bool>() ? "on" : "off";
    return value.is_string() ? value.get<std::string>() : value.dump();
}

TEST_F(Describe, JsonSaysAllThatAPresetSays) {
    const host::Library library = host::Library::load();
    for (const host::EffectEntry& entry : library.effects()) {
        const Result result = run({"info", entry.id, "--json"});
        ASSERT_EQ(result.status, 0);
        const nlohmann::json json = nlohmann::json::parse(result.out);
        EXPECT_EQ(json["index"], entry.index);
        host::Effect effect = library.open(entry.index);
        ASSERT_EQ(json["presets"].size(), effect.info().presets.size());
        for (const nlohmann::json& preset : json["presets"]) {
            effect.applyPreset(preset["name"].get<std::string>());
            for (const nlohmann::json& parameter : json["parameters"]) {
                const std::string name = parameter["name"];
                EXPECT_EQ(typed(preset["values"][name]), effect.text(name))
                    << entry.id << ' ' << preset["name"] << ' ' << name;
            }
        }
    }
}

TEST_F(Describe, TellsWrongUsageFromFailure) {
    testing::makePicture(path("in.png"), 16, 16, false);
    const std::vector<std::vector<std::string>> wrong = {
        {},
        {"pain"},
        {"info"},
        {"info", "postrize"},
        {"list", "--jsn"},
        {"paint", "in.png", "-e", "12", "-o", "out.png"},
        {"paint", "in.png", "-e", "posterize"},
        {"paint", "in.png", "-e", "posterize", "-o", "out.gif"},
        {"paint", "in.png", "-e", "posterize", "-o", "out.mp4"},
        {"paint", "in.png", "-e", "posterize", "-o", "out.png", "-p", "Dot"},
        {"paint", "in.png", "-e", "posterize", "-o", "out.png", "-s", "Brightness"},
        {"paint", "in.png", "-e", "posterize", "-o", "out.png", "-s", "Brightness=101"},
        {"paint", "in.png", "-e", "posterize", "-o", "out.png", "-s", "Bright=1"},
        {"paint", "in.png", "-e", "posterize", "-o", "out.png", "--jobs", "0"},
        {"paint", "in.png", "-e", "posterize", "-o", "out.png", "--seed", "x"},
    };
    for (const std::vector<std::string>& arguments : wrong) {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, 2) << ::testing::PrintToString(arguments);
        EXPECT_THAT(result.err, Not(IsEmpty()));
        EXPECT_THAT(result.out, IsEmpty());
    }
    EXPECT_THAT(run({"info", "postrize"}).err, HasSubstr("did you mean \"posterize\"?"));
    EXPECT_EQ(files(), std::set<std::string>{"in.png"});

    EXPECT_EQ(run({"--help"}).status, 0);
    EXPECT_EQ(run({"--version"}).status, 0);
    const Result missing = run({"list"}, "/nowhere/lib.so");
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.err, AllOf(StartsWith("brushworks: "), HasSubstr("/nowhere/lib.so")));
}

}  // namespace
}  // namespace brushworks::tools
