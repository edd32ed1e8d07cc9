// What `paint` takes in memory, and the frames that it refuses.
#include <gmock/gmock.h>

#include "host/library.h"
#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

using ::testing::AllOf;
using testing::CommandTest;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::Result;
using testing::writeFile;

using Words = std::vector<std::string>;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

constexpr std::int64_t kMega = 1000000;

class PaintMemory : public CommandTest {
  protected:
    /// What a dry run tells, in bytes.
    std::int64_t told(const Words& words) {
        Words dry = words;
        dry.emplace_back("--dry-run");
        const std::string out = run(dry).out;
        const std::size_t at = out.find("Memory   about ");
        EXPECT_NE(at, std::string::npos) << out;
        std::istringstream text(out.substr(at + 15));
        double number = 0;
        std::string unit;
        text >> number >> unit;
        return static_cast<std::int64_t>(number * (unit == "GB" ? 1e9 : 1e6));
    }
    void expectTold(const Words& words) {
        const std::int64_t most = told(words);
        const Result result = run(words);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_LE(result.peakBytes, most) << ::testing::PrintToString(words);
        EXPECT_GE(result.peakBytes, most / 4) << ::testing::PrintToString(words);
    }
};

TEST_F(PaintMemory, IsNoMoreThanADryRunTells) {
    if (kSanitized) GTEST_SKIP() << "sanitizers take their own";
    testing::makeNoise(path("deep.png"), "rgb48be");
    testing::makeColors(path("bytes.png"), 48, 32);
    testing::makeClip(path("clip.mp4"), {.frames = 6});
    const host::Library library = host::Library::load();
    for (const host::EffectEntry& effect : library.effects()) {
        for (const char* input : {"deep.png", "bytes.png"}) {
            expectTold(
                {"paint", input, "-e", effect.id, "-f", "-o", "out.png", "--scale", "1500:1000"});
        }
    }
    for (const char* output : {"out.mp4", "out.gif", "out.y4m"}) {
        expectTold(
            {"paint", "clip.mp4", "-e", "mural", "-o", output, "--scale", "1200:900", "-j", "2"});
    }
}

/// Files of 16000x16000 with next to nothing between head and end.
std::string largeGif() {
    return std::string("GIF89a\x80\x3E\x80\x3E\x80\0\0", 13) + std::string(6, '\0') +
           std::string(",\0\0\0\0\x80\x3E\x80\x3E\0\x02\x02\x4C\x01\0;", 16);
}
std::string largePng() {
    return std::string("\x89PNG\r\n\x1A\n", 8) +
           std::string("\0\0\0\x0DIHDR\0\0\x3E\x80\0\0\x3E\x80\x08\x02\0\0\0\xCE\x1C\x48\x89", 25) +
           std::string("\0\0\0\x08IDAT\x78\x9C\x03\0\0\0\0\x01\x48\x06\x89\xD2", 20) +
           std::string("\0\0\0\0IEND\xAE\x42\x60\x82", 12);
}

TEST_F(PaintMemory, RefusesLargeFramesBeforeTheyAreDecoded) {
    writeFile(path("large.gif"), largeGif());
    writeFile(path("large.png"), largePng());
    for (const char* name : {"large.gif", "large.png"}) {
        const Result result = paint(name, "out.png", {"--memory", "2G"});
        EXPECT_EQ(result.status, 1);
        EXPECT_THAT(result.err, AllOf(HasSubstr(name), HasSubstr("16000x16000 needs"),
                                      HasSubstr("2.2 GB may be used"), HasSubstr("--memory")));
        EXPECT_TRUE(kSanitized || result.peakBytes < 150 * kMega) << result.peakBytes;
        const Result gallery = run({"gallery", name, "-o", "pages", "--memory", "300M"});
        EXPECT_EQ(gallery.status, 1);
        EXPECT_THAT(gallery.err, AllOf(HasSubstr("16000x16000"), Not(HasSubstr("--scale"))));
    }
    testing::makeColors(path("small.png"), 40, 30);
    const Result scaled =
        paint("small.png", "out.png", {"--scale", "4000:3000", "--memory", "100M"});
    EXPECT_EQ(scaled.status, 1);
    EXPECT_THAT(scaled.err, HasSubstr("4000x3000 needs"));
    // A sequence has the size of its first picture.
    testing::makeColors(path("s1.png"), 40, 30);
    std::filesystem::copy(path("large.png"), path("s2.png"));
    const Result sequence = paint("s%d.png", "out.mp4");
    EXPECT_EQ(sequence.status, 1);
    EXPECT_THAT(sequence.err, HasSubstr("s2.png"));
    EXPECT_EQ(files().count("out.png") + files().count("out.mp4"), 0U);
}

TEST_F(PaintMemory, RunsFewerJobsWhereItIsShort) {
    testing::makeClip(path("in.mp4"), {.width = 640, .height = 480, .frames = 5});
    const Result free = paint("in.mp4", "free.y4m", {"-j", "4"});
    EXPECT_EQ(free.err, "");
    const std::int64_t one = told({"paint", "in.mp4", "-e", "posterize", "-o", "t.y4m", "-j", "1"});
    const std::string memory = std::to_string(one / kMega + 1) + "M";
    const Result tight = paint("in.mp4", "tight.y4m", {"-j", "4", "--memory", memory});
    EXPECT_EQ(tight.status, 0) << tight.err;
    EXPECT_THAT(tight.err, ::testing::MatchesRegex("[^\n]* at once in place of 4[^\n]*\n"));
    EXPECT_EQ(testing::readFile(path("tight.y4m")), testing::readFile(path("free.y4m")));
}

TEST_F(PaintMemory, NamesTheLargestFrames) {
    testing::makeColors(path("in.png"), 40, 30);
    writeFile(path("large.y4m"), "YUV4MPEG2 W16384 H16384 F25:1\nFRAME\n");
    const auto expectRefusal = [&](const Result& result, int status) {
        EXPECT_EQ(result.status, status);
        EXPECT_THAT(result.err, AllOf(HasSubstr("16384x16384 is too large"),
                                      HasSubstr("up to 16255x16255"), HasSubstr("16128 lines")));
    };
    expectRefusal(paint("in.png", "out.png", {"--scale", "16384:16384"}), 2);
    expectRefusal(paint("large.y4m", "out.mp4"), 1);
}

}  // namespace
}  // namespace brushworks::tools
