// `paint` with videos.
#include <gmock/gmock.h>
#include <signal.h>

#include <chrono>
#include <functional>
#include <numeric>
#include <thread>

#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

using testing::CommandTest;
using testing::Content;
using testing::contentOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::makeClip;
using ::testing::Not;
using testing::Result;
using ::testing::StartsWith;

using Names = std::set<std::string>;

class PaintVideo : public CommandTest {};

std::vector<int> countTo(int end) {
    std::vector<int> numbers(static_cast<std::size_t>(end));
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

TEST_F(PaintVideo, KeepsFramesTimesAndSound) {
    makeClip(path("in.mkv"),
             {.frames = 60, .sound = true, .frameRate = {30000, 1001}, .pixelAspect = {16, 15}});
    const Result result = paint("in.mkv", "out.mkv", {"--jobs", "3"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out + result.err, IsEmpty());
    const Content in = contentOf(path("in.mkv"));
    const Content out = contentOf(path("out.mkv"));
    ASSERT_EQ(in.numbers, countTo(60));
    EXPECT_EQ(out.numbers, in.numbers);
    EXPECT_EQ(out.times, in.times);
    ASSERT_THAT(in.packets, Not(IsEmpty()));
    EXPECT_EQ(out.packets, in.packets);
    EXPECT_EQ(out.pixelAspect.num, 16);
    EXPECT_EQ(out.pixelAspect.den, 15);
}

TEST_F(PaintVideo, GivesTheSameFileForAnyNumberOfJobs) {
    makeClip(path("in.mp4"), {.frames = 30});
    for (const char* jobs : {"1", "4"}) {
        const std::string name = std::string("out") + jobs + ".mp4";
        ASSERT_EQ(paint("in.mp4", name, {"--jobs", jobs, "-p", "Dots"}).status, 0);
    }
    const std::string one = testing::readFile(path("out1.mp4"));
    EXPECT_FALSE(one.empty());
    EXPECT_TRUE(one == testing::readFile(path("out4.mp4")));
}

TEST_F(PaintVideo, WritesEveryTypeFromEveryType) {
    for (const char* from : {"mp4", "webm", "mov"}) {
        const std::string in = std::string("in.") + from;
        makeClip(path(in), {.frames = 5});
        for (const char* to : {"mp4", "mkv", "webm", "mov"}) {
            const std::string out = std::string(from) + "-out." + to;
            const Result result = paint(in, out);
            ASSERT_EQ(result.status, 0) << out << result.err;
            EXPECT_EQ(contentOf(path(out)).numbers, countTo(5)) << out;
        }
    }
}

TEST_F(PaintVideo, KeepsOddSizesAndSaysHow) {
    makeClip(path("in.webm"), {.width = 67, .height = 35, .frames = 4});
    for (const char* out : {"out.mp4", "o.webm"}) {
        const Result result = paint("in.webm", out);
        ASSERT_EQ(result.status, 0) << result.err;
        const Content content = contentOf(path(out));
        EXPECT_EQ(content.width, 67);
        EXPECT_EQ(content.height, 35);
        EXPECT_EQ(content.numbers, countTo(4));
        const bool told = result.err.find("67x35 is odd") != std::string::npos;
        EXPECT_EQ(told, content.format == "yuv444p") << result.err;
    }
}

TEST_F(PaintVideo, PaintsFields) {
    makeClip(path("in.mp4"), {.frames = 6});
    const Result result = paint("in.mp4", "out.mp4", {"--fields"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(contentOf(path("out.mp4")).numbers, countTo(6));
}

TEST_F(PaintVideo, MovesValuesByTheTimesOfFrames) {
    // From all white to all black at a mark that a file's milliseconds come a hair too early for.
    // Of two settings the later one counts: the contrast stays.
    makeClip(path("in.mkv"), {.frames = 12, .frameRate = {30000, 1001}});
    const Result result =
        run({"paint", "in.mkv", "-e", "pencil-rubbing", "-s", "contrast=-100@0s", "-s",
             "contrast=0", "-s", "brightness=100@6f,-100@7f", "-o", "out.mkv", "--jobs", "3"});
    ASSERT_EQ(result.status, 0) << result.err;
    std::vector<int> expected(12, 0);
    std::fill_n(expected.begin(), 7, 255);
    EXPECT_EQ(contentOf(path("out.mkv")).numbers, expected);
    EXPECT_EQ(paint("in.mkv", "wrong.mkv", {"-s", "color=1@0s,2@4x"}).status, 2);
}

TEST_F(PaintVideo, PreviewsTheStartAndTellsProgramsHowFarItIs) {
    makeClip(path("in.mkv"), {.width = 96, .height = 600, .frames = 60, .sound = true});
    const Result result = paint("in.mkv", "out.mkv", {"--preview", "--progress=kv", "-q"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, IsEmpty());
    EXPECT_THAT(result.err, StartsWith("frame=0\ntotal=50\n"));
    EXPECT_THAT(result.err, EndsWith("eta_s=0.0\nprogress=end\n"));
    const Content in = contentOf(path("in.mkv"));
    const Content out = contentOf(path("out.mkv"));
    EXPECT_EQ(out.numbers, countTo(50));
    EXPECT_EQ(out.width, 76);
    EXPECT_EQ(out.height, 480);
    EXPECT_GT(out.packets.size(), in.packets.size() * 2 / 3);
    EXPECT_LT(out.packets.size(), in.packets.size() * 11 / 12);
    // The picture looks as wide as before.
    ASSERT_EQ(paint("in.mkv", "wide.mkv", {"--scale", "48:32"}).status, 0);
    EXPECT_EQ(av_cmp_q(contentOf(path("wide.mkv")).pixelAspect, {8, 75}), 0);
}

TEST_F(PaintVideo, RefusesSoundThatTheOutputCannotHold) {
    makeClip(path("in.mkv"), {.frames = 4, .sound = true});
    const Result result = paint("in.mkv", "out.webm");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("cannot hold pcm_s16le sound"));
    EXPECT_EQ(files(), (Names{"in.mkv", "in.mkv.wav"}));
}

TEST_F(PaintVideo, RefusesVideosThatAreDamaged) {
    makeClip(path("in.mp4"), {.width = 128, .height = 96, .frames = 40});
    // The last frames, since the index stands in front.
    std::string spoilt = testing::readFile(path("in.mp4"));
    spoilt.replace(spoilt.size() - 60, 60, 60, '\x7E');
    testing::writeFile(path("in.mp4"), spoilt);
    // Each muxer has something in its hands by then, which it must not keep.
    for (const char* output : {"out.mp4", "out.mkv", "out.avi", "out.webm", "out.gif"}) {
        const Result result = paint("in.mp4", output, {"--jobs", "2"});
        EXPECT_EQ(result.status, 1) << result.err;
        EXPECT_THAT(result.err, HasSubstr("is damaged or incomplete"));
    }
    EXPECT_EQ(files(), Names{"in.mp4"});
}

/// Waits until the run has made its unfinished file.
bool waitForFile(const std::function<bool()>& there) {
    for (int i = 0; i < 1000; ++i) {
        if (there()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

TEST_F(PaintVideo, LeavesNothingBehindWhenInterrupted) {
    makeClip(path("in.mp4"), {.frames = 10});
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP}) {
        // This effect sleeps for a minute over its first frame.
        const pid_t process =
            start({"paint", "in.mp4", "-e", "0", "-s", "Mood=Sleep", "-o", "out.mp4"},
                  BRUSHWORKS_TESTING_LIBRARY);
        EXPECT_TRUE(waitForFile([&] { return files().size() == 2; }));
        kill(process, signalNumber);
        EXPECT_EQ(wait(process).signal, signalNumber);
        EXPECT_EQ(files(), Names{"in.mp4"});
    }
}

TEST_F(PaintVideo, StopsCleanlyAtTheFirstError) {
    makeClip(path("in.mp4"), {.frames = 30});
    const Result result = run({"paint", "in.mp4", "-e", "0", "-o", "out.mp4", "--jobs", "4"},
                              BRUSHWORKS_TESTING_LIBRARY);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("could not render frame 0"));
    EXPECT_EQ(files(), Names{"in.mp4"});
}

}  // namespace
}  // namespace brushworks::tools
