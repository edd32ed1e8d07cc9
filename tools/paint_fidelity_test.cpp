// `paint` keeps what a file has: depth, alpha, fields, times, turns, companions; and its pipes.
#include <gmock/gmock.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

using testing::CommandTest;
using testing::Content;
using testing::contentOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::makeNoise;
using testing::Result;
using testing::Samples;
using testing::samplesOf;

class PaintFidelity : public CommandTest {
  protected:
    /// `paint` with values that change nothing.
    Result keep(const std::string& input, const std::string& output,
                std::vector<std::string> more = {}) {
        more.insert(more.begin(),
                    {"paint", input, "-e", "halo", "-p", "Reset to None", "-o", output});
        return run(more);
    }
    /// Runs a line of the shell in the test's folder, where $TOOL is the command line.
    int shell(const std::string& line) const {
        const std::string folder = path("");
        const std::string start = "cd '" + folder + "' && TOOL='" BRUSHWORKS_TOOL "' && ";
        const int status = std::system((start + line).c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    bool hasFfmpeg() const { return shell("ffmpeg -version >version.txt 2>&1") == 0; }
};

TEST_F(PaintFidelity, KeepsBytesOfRedGreenBlueExactly) {
    for (const auto& [type, format] : {std::pair("png", "rgb24"),
                                       {"png", "rgba"},
                                       {"tif", "rgba"},
                                       {"webp", "bgra"},
                                       {"mkv", "bgra"},
                                       {"mov", "rgba"}}) {
        const std::string in = std::string("in-") + format + "." + type;
        const std::string out = std::string("out-") + format + "." + type;
        makeNoise(path(in), format);
        const Result result = keep(in, out, {"--lossless"});
        ASSERT_EQ(result.status, 0) << result.err;
        const Samples before = samplesOf(path(in));
        EXPECT_EQ(samplesOf(path(out)).format, before.format);
        EXPECT_TRUE(samplesOf(path(out)).bytes == before.bytes) << in;
    }
}

TEST_F(PaintFidelity, KeepsDepthAndAlphaByDefault) {
    const std::array<std::string, 3> cases[] = {
        {"rgb48be", "in.png", "out.png"},     {"rgba64be", "in.png", "out.png"},
        {"rgba64le", "in.tif", "out.tif"},    {"yuv422p10le", "in.mkv", "out.mp4"},
        {"yuva420p", "in.mkv", "out.webm"},   {"yuv420p10le", "in.y4m", "out.y4m"},
        {"yuva444p10le", "in.mkv", "out.mkv"}};
    for (const auto& [format, in, out] : cases) {
        makeNoise(path(in), format);
        const Result result = keep(in, out, {"-f"});
        ASSERT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(samplesOf(path(out)).format, format) << in << ' ' << out;
    }
    // The effect itself works in bytes; the way there and back leaves alpha whole.
    makeNoise(path("deep.tif"), "rgba64le");
    ASSERT_EQ(keep("deep.tif", "kept.tif").status, 0);
    const Samples before = samplesOf(path("deep.tif"));
    const Samples after = samplesOf(path("kept.tif"));
    ASSERT_EQ(after.bytes.size(), before.bytes.size());
    for (std::size_t i = 6; i < before.bytes.size(); i += 8) {
        ASSERT_EQ(after.bytes[i], before.bytes[i]) << i;
        ASSERT_EQ(after.bytes[i + 1], before.bytes[i + 1]) << i;
    }
}

TEST_F(PaintFidelity, PaintsFlaggedFramesAsFieldsAndKeepsTheFlags) {
    makeNoise(path("fields.y4m"), "yuv444p", /*bottomFirst=*/true);
    makeNoise(path("whole.y4m"), "yuv444p");
    ASSERT_EQ(paint("fields.y4m", "fields.mkv", {"--lossless", "-p", "Dots"}).status, 0);
    ASSERT_EQ(paint("whole.y4m", "asked.mkv", {"--lossless", "-p", "Dots", "--fields"}).status, 0);
    ASSERT_EQ(paint("whole.y4m", "whole.mkv", {"--lossless", "-p", "Dots"}).status, 0);
    const Samples fields = samplesOf(path("fields.mkv"));
    EXPECT_TRUE(fields.bottomFirst);
    EXPECT_TRUE(fields.bytes == samplesOf(path("asked.mkv")).bytes);
    EXPECT_FALSE(fields.bytes == samplesOf(path("whole.mkv")).bytes);
    ASSERT_EQ(paint("fields.y4m", "fields.mp4").status, 0);
    EXPECT_TRUE(samplesOf(path("fields.mp4")).bottomFirst);
}

TEST_F(PaintFidelity, KeepsUnevenTimes) {
    testing::makeClip(path("in.mov"), {.frames = 8, .uneven = true});
    const Content in = contentOf(path("in.mov"));
    ASSERT_EQ(in.times[3], 6 * 40000);
    for (const char* out : {"out.mp4", "out.mkv", "out.webm", "out.avi", "out.gif"}) {
        ASSERT_EQ(paint("in.mov", out).status, 0);
        EXPECT_EQ(contentOf(path(out)).times, in.times) << out;
        EXPECT_EQ(contentOf(path(out)).numbers, in.numbers) << out;
    }
    EXPECT_THAT(paint("in.mov", "out.y4m").err, HasSubstr("frame rate of the input varies"));
}

TEST_F(PaintFidelity, KeepsTurnsSubtitlesChaptersAndAttachments) {
    if (!hasFfmpeg()) GTEST_SKIP() << "needs the program ffmpeg";
    testing::makeClip(path("in.mp4"), {.frames = 3});
    testing::writeFile(path("words.srt"), "1\n00:00:00,000 --> 00:00:01,000\nHello\n");
    testing::writeFile(path("meta.txt"),
                       ";FFMETADATA1\ntitle=Name\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=60\n");
    ASSERT_EQ(shell("ffmpeg -v error -i in.mp4 -c copy -metadata:s:v rotate=90 turned.mp4 && "
                    "ffmpeg -v error -i in.mp4 -i words.srt -i meta.txt -map_metadata 2 -c copy "
                    "-attach meta.txt -metadata:s:t mimetype=text/plain full.mkv"),
              0);
    ASSERT_EQ(paint("turned.mp4", "note.mp4").status, 0);
    ASSERT_EQ(paint("turned.mp4", "turned.mkv").status, 0);
    EXPECT_EQ(contentOf(path("note.mp4")).width, 64);  // as recorded, with the turn noted
    EXPECT_EQ(contentOf(path("turned.mkv")).width, 48);

    const Result all = paint("full.mkv", "full2.mkv");
    EXPECT_THAT(all.err, IsEmpty());
    const Result some = paint("full.mkv", "some.gif");
    EXPECT_THAT(some.err, HasSubstr("left out: subtitle (subrip)"));
    EXPECT_THAT(some.err, HasSubstr("attachment"));
    EXPECT_THAT(some.err, HasSubstr("1 chapters"));
    ASSERT_EQ(
        shell("ffprobe -v error -show_entries stream=codec_type:format_tags=title "
              "-show_chapters -of compact full2.mkv >probe.txt && "
              "ffprobe -v error -show_entries stream_side_data=rotation note.mp4 >>probe.txt"),
        0);
    const std::string probe = testing::readFile(path("probe.txt"));
    for (const char* kept : {"subtitle", "attachment", "chapter|", "title=Name", "rotation=90"}) {
        EXPECT_THAT(probe, HasSubstr(kept));
    }
}

TEST_F(PaintFidelity, StandsBetweenPipes) {
    const std::string keep = "\"$TOOL\" paint - -e halo -p 'Reset to None' -o - ";
    makeNoise(path("in.y4m"), "yuv422p10le", /*bottomFirst=*/true);
    ASSERT_EQ(shell(keep + "<in.y4m >out.y4m 2>talk.txt"), 0);
    EXPECT_THAT(testing::readFile(path("talk.txt")), IsEmpty());
    const std::string in = testing::readFile(path("in.y4m"));
    const std::string out = testing::readFile(path("out.y4m"));
    EXPECT_EQ(out.size(), in.size());
    EXPECT_EQ(out.substr(0, out.find('\n')), in.substr(0, in.find('\n')));
    EXPECT_THAT(in, HasSubstr(" Ib "));
    EXPECT_EQ(shell("head -c 9000 in.y4m | " + keep + ">cut.y4m 2>talk.txt"), 1);
    EXPECT_THAT(testing::readFile(path("talk.txt")), HasSubstr("standard input is damaged"));
    EXPECT_EQ(shell("echo nothing | " + keep + ">cut.y4m 2>talk.txt"), 1);
    if (!hasFfmpeg()) GTEST_SKIP() << "needs the program ffmpeg";
    testing::makeClip(path("in.mkv"), {.frames = 6, .pixelAspect = {16, 15}});
    ASSERT_EQ(shell("ffmpeg -v error -i in.mkv -f yuv4mpegpipe - | " + keep +
                    "| ffmpeg -v error -i - -c:v ffv1 out.mkv"),
              0);
    EXPECT_EQ(contentOf(path("out.mkv")).numbers, contentOf(path("in.mkv")).numbers);
    EXPECT_EQ(contentOf(path("out.mkv")).times, contentOf(path("in.mkv")).times);
    EXPECT_EQ(contentOf(path("out.mkv")).pixelAspect.num, 16);
}

TEST_F(PaintFidelity, SaysWhichEncodingsDoNotGoTogether) {
    testing::makeClip(path("in.mp4"), {.frames = 2});
    const auto expectUsage = [&](const char* out, const std::vector<std::string>& more,
                                 const char* text) {
        const Result result = paint("in.mp4", out, more);
        EXPECT_EQ(result.status, 2) << text;
        EXPECT_THAT(result.err, HasSubstr(text));
    };
    expectUsage("out.webm", {"--codec", "h264"}, ".webm files can have: libvpx-vp9");
    expectUsage("out.mkv", {"--codec", "h265x"}, "there is no codec \"h265x\"");
    expectUsage("out.mkv", {"--codec", "ffv1", "--quality", "5"}, "ffv1 has no scale of quality");
    expectUsage("out.mov", {"--codec", "prores", "--lossless"}, "prores_ks cannot be lossless");
    expectUsage("out.gif", {"--lossless"}, ".gif files cannot be lossless");
    expectUsage("out.mp4", {"--pix-fmt", "rgba"}, "it takes yuv420p");
    makeNoise(path("deep.mkv"), "yuv420p12le");
    const Result deep = keep("deep.mkv", "deep.mp4", {"--lossless"});
    EXPECT_THAT(deep.err, HasSubstr("cannot hold pixels of yuv420p12le without loss"));

    ASSERT_EQ(paint("in.mp4", "small.mkv", {"--quality", "10"}).status, 0);
    ASSERT_EQ(paint("in.mp4", "large.mkv", {"--quality", "100", "--pix-fmt", "yuv444p"}).status, 0);
    EXPECT_EQ(samplesOf(path("large.mkv")).format, "yuv444p");
    EXPECT_GT(std::filesystem::file_size(path("large.mkv")),
              std::filesystem::file_size(path("small.mkv")));
}

TEST_F(PaintFidelity, ManualShowsTheTableOfEncoders) {
    const std::string manual = testing::readFile(BRUSHWORKS_DOCS "/video.md");
    std::istringstream rows(run({"codecs"}).out);
    for (std::string row; std::getline(rows, row);) {
        if (row.find("none in this build") != std::string::npos) continue;
        EXPECT_THAT(manual, HasSubstr(row));
    }
}

}  // namespace
}  // namespace brushworks::tools
