// Damaged files: whatever is wrong in them, reading ends, with all frames or with a message.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "media/error.h"
#include "media/log.h"
#include "media/output_format.h"
#include "media/reader.h"
#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

using Random = std::minstd_rand;

std::size_t below(Random& random, std::size_t end) {
    return random() % end;
}

/// Some bytes changed, and every third time the end cut off.
std::string damaged(std::string bytes, Random& random) {
    if (random() % 3 == 0) bytes.resize(1 + below(random, bytes.size()));
    for (std::size_t i = 0, count = 1 + below(random, 12); i < count; ++i) {
        // Heads are short, and there is most to get wrong.
        const std::size_t within =
            random() % 2 == 0 ? bytes.size() : std::min<std::size_t>(bytes.size(), 200);
        bytes[below(random, within)] = static_cast<char>(random());
    }
    return bytes;
}

/// Reads all that there is, or a part.
void readAll(const std::string& path, bool part) {
    media::Reader reader(path);
    if (part && !reader.skipTo(5)) return;
    for (int frames = 0; reader.next() && frames < 100; ++frames) reader.takePackets();
}

class MediaFuzz : public testing::CommandTest {};

TEST_F(MediaFuzz, DamagedFilesAreReadOrRefused) {
    const char* const names[] = {"a.mp4", "b.mkv", "c.avi", "d.webm", "e.y4m", "f.mov",
                                 "g.png", "h.jpg", "i.tif", "j.webp", "k.ppm"};
    constexpr int kCases = 28;  // of each
    media::captureLog();
    Random random(1);
    int refused = 0;
    for (const std::string name : names) {
        const bool picture = media::outputFormatOf(name).picture;
        if (picture) {
            testing::makeColors(path(name), 24, 16);
        } else {
            testing::makeClip(path(name), {.width = 32, .height = 16, .frames = 6});
        }
        const std::string whole = testing::readFile(path(name));
        for (int i = 0; i < kCases; ++i) {
            const std::string bytes = damaged(whole, random);
            testing::writeFile(path("bad"), bytes);
            try {
                readAll(path("bad"), i % 4 == 0);
            } catch (const media::MediaError& error) {
                EXPECT_STRNE(error.what(), "");
                ++refused;
            }
        }
        // The tool around it.
        const testing::Result result = paint("bad", picture ? "out.png" : "out.mkv", {"-f"});
        EXPECT_TRUE(result.status == 0 || (result.status == 1 && !result.err.empty())) << name;
    }
    EXPECT_GT(refused, kCases * 4);
    EXPECT_LE(files().size(), std::size(names) + 3);
}

}  // namespace
}  // namespace brushworks::tools
