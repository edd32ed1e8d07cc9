// No run writes what it reads, whatever the names, links and patterns.
#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <map>

#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::HasSubstr;
using testing::makeClip;
using testing::makeColors;
using testing::Result;

constexpr testing::Clip kClip = {.width = 32, .height = 16, .frames = 4};

class InputFiles : public testing::CommandTest {
  protected:
    /// What all files of the test's folder hold.
    std::map<std::string, std::string> contents() const {
        std::map<std::string, std::string> bytes;
        for (const auto& entry : fs::recursive_directory_iterator(path(""))) {
            const std::string name = entry.path().filename().string();
            if (!entry.is_regular_file() || name.starts_with("captured.")) continue;
            bytes[entry.path().string()] = testing::readFile(entry.path().string());
        }
        return bytes;
    }

    /// A run that names input and output as the same file, and changes nothing.
    void expectRefused(const std::vector<std::string>& command, const char* output,
                       const char* input) {
        const auto before = contents();
        const Result result = run(command);
        EXPECT_EQ(result.status, 1) << result.err;
        EXPECT_THAT(result.err, AllOf(HasSubstr(std::string("output ") + output + " is the same"),
                                      HasSubstr(std::string("file as the input ") + input),
                                      HasSubstr("choose another")));
        EXPECT_TRUE(contents() == before) << output;
    }
    void expectPaintRefused(const std::string& from, const std::string& to, const char* output,
                            const char* input, const std::vector<std::string>& more = {}) {
        for (const char* how : {"--force", "--resume", "--dry-run"}) {
            std::vector<std::string> command = {"paint", from, "-e", "posterize", "-o", to, how};
            command.insert(command.end(), more.begin(), more.end());
            expectRefused(command, output, input);
        }
    }
};

TEST_F(InputFiles, AreNoPaintedOutputs) {
    for (const char* name : {"a-1.png", "a-2.png", "f-998.png", "f-999.png", "f-1000.png"}) {
        makeColors(path(name), 16, 16);
    }
    // Videos, whatever their names say.
    makeClip(path("clip.mkv"), kClip);
    fs::copy(path("clip.mkv"), path("k-0000.png"));
    makeClip(path("clip.y4m"), kClip);
    fs::copy(path("clip.y4m"), path("n-0003.png"));
    ASSERT_EQ(run({"preset", "save", "posterize", "-o", "preset.png"}).status, 0);
    fs::create_symlink("a-2.png", path("soft-1.png"));
    fs::create_hard_link(path("a-1.png"), path("hard-2.png"));
    fs::create_symlink("a-2.png", path("film.mkv"));
    fs::create_directory_symlink(".", path("here"));

    expectPaintRefused("f-%d.png", "f-%04d.png", "f-1000.png", "f-1000.png");
    expectPaintRefused("a-%d.png", "here/a-%01d.png", "here/a-1.png", "a-1.png");
    expectPaintRefused("a-%d.png", "soft-%d.png", "soft-1.png", "a-2.png");
    expectPaintRefused("a-%d.png", "hard-%d.png", "hard-2.png", "a-1.png");
    expectPaintRefused("a-%d.png", "film.mkv", "film.mkv", "a-2.png");
    expectPaintRefused("a-%d.png", "./", "./a-1.png", "a-1.png");
    expectPaintRefused("k-0000.png", "k-%04d.png", "k-0000.png", "k-0000.png");
    expectPaintRefused("n-0003.png", "n-%04d.png", "n-0003.png", "n-0003.png");
    expectPaintRefused("n-0003.png", "n-%04d.png", "n-0003.png", "n-0003.png", {"--start", "1"});
    expectPaintRefused("clip.mkv", "here/clip.mkv", "here/clip.mkv", "clip.mkv");
    expectPaintRefused("a-1.png", "preset.png", "preset.png", "preset.png",
                       {"--preset-file", "preset.png"});
    // Of several inputs any one.
    expectRefused({"paint", "a-1.png", "here/clip.mkv", "-e", "oil", "-o", "here", "-f"},
                  "here/a-1.png", "a-1.png");
    // Only outputs that there are count.
    EXPECT_EQ(paint("f-%d.png", "f-%04d.png", {"--frames", "0-1"}).status, 0);
}

TEST_F(InputFiles, AreNoStandardStreams) {
    makeClip(path("in.y4m"), kClip);
    const std::string tool = "cd " + path("") + " && " + BRUSHWORKS_TOOL + " paint -e posterize ";
    const auto before = contents();
    EXPECT_NE(std::system((tool + "- -f -o in.y4m < in.y4m 2> captured.err").c_str()), 0);
    EXPECT_THAT(testing::readFile(path("captured.err")), HasSubstr("standard input"));
    EXPECT_NE(std::system((tool + "in.y4m -o - >> in.y4m 2> captured.err").c_str()), 0);
    EXPECT_THAT(testing::readFile(path("captured.err")), HasSubstr("standard output"));
    EXPECT_TRUE(contents() == before);
}

TEST_F(InputFiles, AreNotInAGalleryThatIsReplaced) {
    makeColors(path("in.png"), 16, 16);
    ASSERT_EQ(run({"gallery", "in.png", "-e", "posterize", "-o", "g"}).status, 0);
    fs::create_symlink("g/original.jpg", path("link.jpg"));
    for (const char* input : {"g/original.jpg", "link.jpg"}) {
        expectRefused({"gallery", input, "-e", "posterize", "-o", "g", "--force"}, "g/original.jpg",
                      input);
    }
}

}  // namespace
}  // namespace brushworks::tools
