// `paint` with sequences, parts of videos, several inputs, and runs that were stopped.
#include <gmock/gmock.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>
#include <tuple>

#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

using testing::CommandTest;
using testing::Content;
using testing::contentOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::makeClip;
using testing::makeColors;
using testing::readFile;
using testing::Result;
using testing::samplesOf;
using testing::writeFile;

using Names = std::set<std::string>;

constexpr int kWidth = 64;
constexpr int kHeight = 48;

class PaintParts : public CommandTest {
  protected:
    /// Strokes and values that change from frame to frame.
    Result paintMoving(const std::string& input, const std::string& output,
                       std::vector<std::string> more = {}) {
        more.insert(more.begin(),
                    {"paint", input, "-e", "impressionist", "-s", "lock variations=off", "-s",
                     "brush size=10@0f,40@90f", "--hold", "2", "-o", output});
        return run(more);
    }
    void makeSequence(int first, int count) {
        for (int i = first; i < first + count; ++i) {
            makeColors(path("in-" + std::to_string(i) + ".png"), kWidth, kHeight);
        }
    }
};

TEST_F(PaintParts, PaintsTheFramesThatTheWholeHas) {
    // An index of all frames to seek by, packets to count, and neither.
    makeClip(path("in.mp4"), {.width = kWidth, .height = kHeight, .frames = 90});
    makeClip(path("in.mkv"), {.width = kWidth, .height = kHeight, .frames = 90});
    makeClip(path("in.avi"), {.width = kWidth, .height = kHeight, .frames = 90});
    testing::makeNoise(path("fields.mkv"), "yuv422p", /*bottomFirst=*/true);
    for (const char* name : {"in.mp4", "in.mkv", "in.avi", "fields.mkv"}) {
        ASSERT_EQ(paintMoving(name, "whole.mkv", {"--lossless", "-f"}).status, 0) << name;
        const std::vector<std::uint8_t> whole = samplesOf(path("whole.mkv")).bytes;
        const bool fields = std::string(name) == "fields.mkv";
        const std::size_t size = whole.size() / (fields ? 3 : 90);
        using Range = std::tuple<const char*, std::size_t, std::size_t>;
        const std::vector<Range> ranges =
            fields ? std::vector<Range>{{"1-", 1, 2}}
                   : std::vector<Range>{{"75-77", 75, 3}, {"-1", 0, 2}, {"89", 89, 1}};
        for (const auto& [range, first, count] : ranges) {
            const Result result =
                paintMoving(name, "part.mkv", {"--lossless", "-f", "--frames", range});
            ASSERT_EQ(result.status, 0) << result.err;
            const std::vector<std::uint8_t> part = samplesOf(path("part.mkv")).bytes;
            ASSERT_EQ(part.size(), count * size) << name << ' ' << range;
            const auto from = whole.begin() + static_cast<std::ptrdiff_t>(first * size);
            EXPECT_TRUE(std::equal(part.begin(), part.end(), from)) << name << ' ' << range;
            EXPECT_EQ(contentOf(path("part.mkv")).times[0], 0);
        }
    }
    const Result result = paintMoving("in.mkv", "none.mkv", {"--frames", "90-"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("in.mkv ends before frame 90"));
    for (const char* wrong : {"-", "5-3", "a", "1-2-3", ""}) {
        EXPECT_EQ(paintMoving("in.mkv", "none.mkv", {"--frames", wrong}).status, wrong[0] ? 2 : 0);
    }
}

TEST_F(PaintParts, CutsTheSoundWithTheFrames) {
    makeClip(path("in.mkv"), {.frames = 60, .sound = true});
    ASSERT_EQ(paint("in.mkv", "part.mkv", {"--frames", "30-49"}).status, 0);
    const Content whole = contentOf(path("in.mkv"));
    const Content part = contentOf(path("part.mkv"));
    ASSERT_EQ(part.numbers.size(), 20U);
    EXPECT_EQ(part.numbers.front(), 30);
    // A third of the packets, which lie in one piece in the whole.
    EXPECT_NEAR(
        static_cast<double>(part.packets.size()) / static_cast<double>(whole.packets.size()),
        20.0 / 60, 0.05);
    EXPECT_NE(std::search(whole.packets.begin(), whole.packets.end(), part.packets.begin(),
                          part.packets.end()),
              whole.packets.end());
}

TEST_F(PaintParts, GoesFromPicturesToVideoAndBack) {
    makeClip(path("in.mkv"), {.width = kWidth, .height = kHeight, .frames = 14});
    ASSERT_EQ(paint("in.mkv", "out-%03d.ppm", {"--frames", "8-11"}).status, 0);
    EXPECT_EQ(files(),
              (Names{"in.mkv", "out-008.ppm", "out-009.ppm", "out-010.ppm", "out-011.ppm"}));
    const Result film = paint("out-%03d.ppm", "film.mkv", {"--fps", "10", "--frames", "1-"});
    ASSERT_EQ(film.status, 0) << film.err;
    EXPECT_THAT(contentOf(path("film.mkv")).numbers, ElementsAre(9, 10, 11));
    EXPECT_THAT(contentOf(path("film.mkv")).times, ElementsAre(0, 100000, 200000));
    // The pictures of a sequence change as the frames of a video would.
    ASSERT_EQ(paintMoving("out-%03d.ppm", "as-%d.png", {"--jobs", "3"}).status, 0);
    ASSERT_EQ(paintMoving("out-%03d.ppm", "film.avi", {"--lossless"}).status, 0);
    std::vector<std::uint8_t> pictures;
    for (const char* name : {"as-8.png", "as-9.png", "as-10.png", "as-11.png"}) {
        const std::vector<std::uint8_t> picture = samplesOf(path(name)).bytes;
        pictures.insert(pictures.end(), picture.begin(), picture.end());
    }
    ASSERT_EQ(paintMoving("out-%03d.ppm", "film.mov", {"--codec", "png"}).status, 0);
    EXPECT_EQ(samplesOf(path("film.mov")).bytes, pictures);
}

TEST_F(PaintParts, FillsAFolder) {
    makeColors(path("a.png"), 32, 24);
    makeColors(path("b.jpg"), 48, 16);
    makeClip(path("c.mkv"), {.frames = 3});
    const std::vector<std::string> command = {"paint", "a.png", "b.jpg", "c.mkv",
                                              "-e",    "oil",   "-o",    "painted/"};
    const Result result = run(command);
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(contentOf(path("painted/b.jpg")).width, 48);
    EXPECT_EQ(contentOf(path("painted/c.mkv")).numbers.size(), 3U);
    const Result again = run(command);
    EXPECT_EQ(again.status, 1);
    EXPECT_THAT(again.err, HasSubstr("painted/a.png exists"));
    EXPECT_EQ(run({"paint", "a.png", "a.png", "-e", "oil", "-o", "new/"}).status, 1);
    EXPECT_EQ(run({"paint", "a.png", "b.jpg", "-e", "oil", "-o", "c.png"}).status, 2);
    EXPECT_EQ(run({"paint", "a.png", "no.png", "-e", "0", "-o", "new/"}).status, 1);
    // What is whole stays.
    EXPECT_TRUE(std::filesystem::exists(path("new/a.png")));
}

TEST_F(PaintParts, GoesOnWhereARunWasStopped) {
    makeClip(path("in.mkv"), {.width = 320, .height = 240, .frames = 40});
    const pid_t process = start({"paint", "in.mkv", "-e", "mural", "-o", "o%02d.ppm", "-j", "2"});
    for (int i = 0; i < 2000 && files().count("o03.ppm") == 0; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    kill(process, SIGTERM);
    EXPECT_EQ(wait(process).signal, SIGTERM);
    const std::size_t done = files().size();
    EXPECT_GT(done, 4U);
    EXPECT_LT(done, 41U);
    // It is not painted again, nor is it replaced.
    writeFile(path("o01.ppm"), "kept");
    std::filesystem::remove(path("o02.ppm"));
    const Result result = run({"paint", "in.mkv", "-e", "mural", "-o", "o%02d.ppm", "--resume"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(files().size(), 41U);
    EXPECT_EQ(readFile(path("o01.ppm")), "kept");
    ASSERT_EQ(run({"paint", "in.mkv", "-e", "mural", "-o", "new%d.ppm", "--frames", "39"}).status,
              0);
    EXPECT_EQ(readFile(path("o39.ppm")), readFile(path("new39.ppm")));
    EXPECT_EQ(run({"paint", "in.mkv", "-e", "mural", "-o", "o%02d.ppm", "--resume"}).status, 0);
}

TEST_F(PaintParts, SaysWhatIsWrongWithASequence) {
    makeSequence(8, 4);
    std::filesystem::remove(path("in-10.png"));
    const Result gap = paint("in-%d.png", "out-%d.png");
    EXPECT_EQ(gap.status, 1);
    EXPECT_THAT(gap.err, HasSubstr("in-10.png is missing"));
    EXPECT_EQ(paint("in-%d.png", "out.png", {"--start", "11"}).status, 2);
    makeColors(path("in-10.png"), kWidth, kHeight / 2);
    const Result sizes = paint("in-%d.png", "out.mkv");
    EXPECT_EQ(sizes.status, 1);
    EXPECT_THAT(sizes.err, HasSubstr("in-10.png is 64x24"));
    writeFile(path("in-10.png"), readFile(path("in-9.png")).substr(0, 900));
    EXPECT_EQ(paint("in-%d.png", "out-%d.png").status, 1);
    // The pictures before it are whole.
    EXPECT_EQ(files(),
              (Names{"in-8.png", "in-9.png", "in-10.png", "in-11.png", "out-8.png", "out-9.png"}));
}

}  // namespace
}  // namespace brushworks::tools
