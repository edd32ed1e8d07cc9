// Files that end too early: never fewer frames than there were without a word, and no false alarm.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "media/error.h"
#include "media/output_format.h"
#include "media/reader.h"
#include "media/stream_copy.h"
#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

using testing::readFile;
using testing::samplesOf;
using testing::writeFile;

constexpr int kWidth = 32;
constexpr int kHeight = 16;
constexpr int kFrames = 6;
constexpr std::size_t kPacketBytes = 188;

/// What a file tells of its end.
enum class End {
    Told,     ///< that it is there
    Frames,   ///< where a frame ends, but not which is the last
    Packets,  ///< where a packet ends
};

/// Copies a video into another type. Into a pipe nothing is filled in afterwards.
void remux(const std::string& from, const std::string& to, const char* muxer,
           const char* options = "", bool pipe = false) {
    AVFormatContext* in = nullptr;
    media::check(avformat_open_input(&in, media::fileUrl(from).c_str(), nullptr, nullptr), from);
    const media::InputPtr input(in);
    media::check(avformat_find_stream_info(in, nullptr), from);
    AVFormatContext* out = nullptr;
    media::check(avformat_alloc_output_context2(&out, nullptr, muxer, nullptr), to);
    const media::OutputPtr output(out);
    media::check(avio_open(&out->pb, media::fileUrl(to).c_str(), AVIO_FLAG_WRITE), to);
    const media::IoPtr io(out->pb);
    if (pipe) io->seekable = 0;
    for (unsigned int i = 0; i < in->nb_streams; ++i) media::copyStream(*in->streams[i], *out);
    media::Dictionary dictionary;
    dictionary.parse(options);
    media::check(avformat_write_header(out, dictionary.pointer()), to);
    const media::PacketPtr packet = media::newPacket();
    while (av_read_frame(in, packet.get()) >= 0) {
        const int index = packet->stream_index;
        av_packet_rescale_ts(packet.get(), in->streams[index]->time_base,
                             out->streams[index]->time_base);
        media::check(av_interleaved_write_frame(out, packet.get()), to);
    }
    media::check(av_write_trailer(out), to);
}

class CutFiles : public testing::CommandTest {
  protected:
    void make(const std::string& name, const media::OutputFormat* format = nullptr) {
        if (format == nullptr && media::outputFormatOf(name).picture) {
            return testing::makeColors(path(name), kWidth, kHeight);
        }
        if (name == "whole.gif") {  // whose colours are the tool's to choose
            make("colors.mkv");
            ASSERT_EQ(paint("colors.mkv", name).status, 0);
            return;
        }
        const bool sound = name == "whole.mkv";
        testing::makeClip(path(name), {.width = kWidth,
                                       .height = kHeight,
                                       .frames = kFrames,
                                       .sound = sound,
                                       .format = format});
    }

    /// The file is read as it is, and each cut of it is refused or exactly a part of the whole.
    void expectLaw(const std::string& name, End end) {
        SCOPED_TRACE(name);
        const std::string bytes = readFile(path(name));
        const std::vector<std::uint8_t> whole = samplesOf(path(name)).bytes;
        const bool picture = media::Reader(path(name)).isPicture();
        std::set<std::size_t> lengths;
        for (std::size_t i = 1; i <= 40; ++i) lengths.insert(bytes.size() * i / 41);
        for (std::size_t i = 1; i <= 8; ++i) lengths.insert(bytes.size() - i);
        std::vector<std::size_t> taken;
        for (const std::size_t length : lengths) {
            writeFile(path("cut"), bytes.substr(0, length));
            try {
                const std::vector<std::uint8_t> part = samplesOf(path("cut")).bytes;
                taken.push_back(length);
                ASSERT_LE(part.size(), whole.size());
                EXPECT_TRUE(std::equal(part.begin(), part.end(), whole.begin())) << length;
            } catch (const media::MediaError& error) {
                EXPECT_THAT(error.what(), ::testing::HasSubstr("cut"));
            }
        }
        if (end == End::Packets) {
            std::erase_if(taken, [](std::size_t length) { return length % kPacketBytes == 0; });
        }
        EXPECT_LE(taken.size(), end == End::Frames ? std::size_t{kFrames} : 0);
        // The tool around it.
        writeFile(path("cut"), bytes.substr(0, bytes.size() / 2 + 1));
        const std::string out =
            "out-" + fs::path(name).stem().string() + (picture ? ".png" : ".mkv");
        const testing::Result result = paint("cut", out);
        EXPECT_EQ(result.status, 1);
        EXPECT_THAT(result.err, ::testing::HasSubstr("cut"));
        EXPECT_EQ(files().count(out), 0U);
    }
    void expectFrames(const std::string& name, const std::string& bytes) {
        SCOPED_TRACE(name);
        writeFile(path(name), bytes);
        EXPECT_EQ(testing::contentOf(path(name)).times.size(), std::size_t{kFrames});
    }
};

TEST_F(CutFiles, OfEveryTypeThatIsWrittenAreRefused) {
    for (const media::OutputFormat& format : media::outputFormats()) {
        const std::string name = std::string("whole.") + format.extension;
        make(name);
        expectLaw(name, name == "whole.y4m" ? End::Frames : End::Told);
    }
}

TEST_F(CutFiles, OfOtherKindsAreRefusedAsFarAsTheyTell) {
    for (const char* name : {"whole.mp4", "whole.mkv", "whole.webm", "whole.avi"}) make(name);
    media::OutputFormat animated = media::outputFormatOf("animated.gif");
    animated.muxer = animated.encoder = animated.alphaEncoder = "apng";
    make("animated.png", &animated);
    expectLaw("animated.png", End::Told);
    remux(path("whole.mp4"), path("fragments.mp4"), "mp4", "movflags=frag_every_frame+empty_moov");
    expectLaw("fragments.mp4", End::Frames);
    remux(path("whole.mkv"), path("live.mkv"), "matroska", "", /*pipe=*/true);
    expectLaw("live.mkv", End::Frames);
    remux(path("whole.webm"), path("live.webm"), "webm", "", /*pipe=*/true);
    expectLaw("live.webm", End::Frames);
    remux(path("whole.avi"), path("live.avi"), "avi", "", /*pipe=*/true);
    expectLaw("live.avi", End::Frames);
    remux(path("whole.mp4"), path("broadcast.ts"), "mpegts");
    expectLaw("broadcast.ts", End::Packets);
}

TEST_F(CutFiles, AreNotThoseThatGoOn) {
    make("whole.gif");
    const std::string gif = readFile(path("whole.gif"));
    const std::string comment("\x21\xFE\x05hello\0", 9);
    expectFrames("comment.gif", std::string(gif).insert(gif.size() - 1, comment));
    expectFrames("tail.gif", gif + std::string(9000, '\0'));
    make("whole.mp4");
    expectFrames("free.mp4", readFile(path("whole.mp4")) + std::string("\0\0\0\x0A"
                                                                       "free..",
                                                                       10));
    remux(path("whole.mp4"), path("whole.ts"), "mpegts");
    expectFrames("gap.ts", readFile(path("whole.ts")).insert(kPacketBytes * 3, "noise"));
    remux(path("whole.mp4"), path("disc.m2ts"), "mpegts", "mpegts_m2ts_mode=1");
    expectFrames("disc.m2ts", readFile(path("disc.m2ts")));
    std::string frames = "YUV4MPEG2 W32 H16 F30:1 Ip A1:1 C420jpeg XCOLORRANGE=FULL\n";
    for (int i = 0; i < kFrames; ++i) frames += "FRAME Ip\n" + std::string(32 * 16 * 3 / 2, 'x');
    expectFrames("tags.y4m", frames);
}

}  // namespace
}  // namespace brushworks::tools
