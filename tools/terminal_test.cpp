// Whatever names and values hold, a terminal gets text and nothing else.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

using testing::CommandTest;
using testing::Result;
using testing::writeFile;

using Words = std::vector<std::string>;

/// Orders of terminals in all their spellings.
constexpr char kHostile[] = "a\x1B[2J\x07\r\t\x7F\x9B\xC2\x9B\xE2\x80\xAE";

class Terminal : public CommandTest {
  protected:
    void expectText(const Words& words, const char* shown = "\\x1b[2J") {
        const Result result = run(words);
        const std::string all = result.out + result.err;
        EXPECT_THAT(all, ::testing::HasSubstr(shown)) << ::testing::PrintToString(words);
        for (const char c : all) {
            const auto byte = static_cast<unsigned char>(c);
            const bool text = c == '\n' || (byte >= ' ' && byte < 0x7F);
            ASSERT_TRUE(text) << ::testing::PrintToString(words) << all;
        }
    }
};

TEST_F(Terminal, GetsNoOrdersFromAnyName) {
    const std::string hostile = kHostile;
    const std::string picture = hostile + ".png";
    testing::makePicture(path("in.png"), 16, 16, false);
    std::filesystem::copy(path("in.png"), path(picture));
    writeFile(path("preset.fxp"),
              "<?xml version='1.0'?><Preset Name='&#x9B;1m&#x7F;' LibraryName='L&#x202E;' "
              "EffectName='\xC2\x9B'><parameter type='2' value='0.25'/></Preset>");
    writeFile(path(hostile + ".fxp"), "<");
    writeFile(path("text" + hostile), "no picture");

    expectText({hostile});
    expectText({"info", hostile});
    expectText({"paint", picture, "-e", "oil", "-o", hostile + "o.png", "--dry-run"});
    expectText({"paint", picture, "-e", "oil", "-o", picture, "-f", "--progress=kv"});
    expectText({"paint", "text" + hostile, "-e", "oil", "-o", "o.png", "--progress=kv"});
    expectText({"paint", "in.png", "-e", "oil", "-o", hostile});
    for (const char* option : {"-e", "-p", "-s", "--codec", "--pix-fmt", "--scale", "--memory",
                               "--fps", "--jobs", "--preset-file"}) {
        Words words = {"paint", "in.png", "-o", "o.png", option, hostile};
        if (option != std::string("-e")) words.insert(words.end(), {"-e", "oil"});
        expectText(words);
    }
    expectText({"paint", "in.png", "-e", "oil", "-o", "o.png", "-s", hostile + "=1"});
    expectText({"paint", "in.png", "-e", "oil", "-o", "o.png", "-s", "Blend=" + hostile});
    expectText({"paint", "in.png", "-e", "oil", "-o", "o.png", "--gpu=" + hostile});
    expectText({"gallery", "in.png", "-e", "oil", "-o", hostile + "/gone/"});
    expectText({"preset", "save", "oil", "-o", "o.fxpbwkh", "--name", hostile});
    expectText({"preset", "show", hostile + ".fxp"});
    expectText({"preset", "show", "preset.fxp"}, "\\u009b1m");
    expectText({"completion", hostile});

    // What programs read is as it was.
    const Result json = run({"preset", "show", "preset.fxp", "--json"});
    EXPECT_EQ(nlohmann::json::parse(json.out)["name"],
              "\xC2\x9B"
              "1m\x7F");
}

}  // namespace
}  // namespace brushworks::tools
