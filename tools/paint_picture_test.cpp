// `paint` with pictures.
#include <gmock/gmock.h>

#include "host/frame_params.h"
#include "host/library.h"
#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

using ::testing::AllOf;
using testing::CommandTest;
using testing::Content;
using testing::contentOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Result;

using Pixels = std::vector<std::uint8_t>;
using Names = std::set<std::string>;

class PaintPicture : public CommandTest {};

FrameParams record(Pixels& pixels, int width, int height) {
    return host::frameParams(pixels.data(), width, height, width * 4, PixelFormatBGRA8);
}

/// What Posterize makes of a picture without the command line.
Pixels rendered(host::Effect& effect, Pixels source, int width, int height,
                std::int16_t fieldMode) {
    Pixels result(source.size());
    const RenderInfo info = {kRenderHasFieldMode, 0, 0, fieldMode};
    EXPECT_TRUE(effect.render(record(source, width, height), record(result, width, height), info));
    return result;
}

TEST_F(PaintPicture, RendersWithPresetAndValues) {
    testing::makeColors(path("in.png"), 37, 23);
    const Result result =
        paint("in.png", "out.png",
              {"-p", "subdued", "-s", "COLOR=30@0s,90@2s", "-s", "dither=option b", "--quiet"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out + result.err, IsEmpty());
    host::Effect effect = host::Library::load().open("posterize");
    effect.applyPreset("Subdued");
    effect.set("Color", "30");
    effect.set("Dither", "Option B");
    const Content in = contentOf(path("in.png"));
    EXPECT_EQ(contentOf(path("out.png")).first, rendered(effect, in.first, 37, 23, 3));
    EXPECT_EQ(files(), (Names{"in.png", "out.png"}));
}

TEST_F(PaintPicture, RendersTheFieldsOfAFrameEachForItself) {
    const int width = 20;
    const int height = 13;
    testing::makeColors(path("in.png"), width, height);
    ASSERT_EQ(paint("in.png", "out.png", {"-s", "Dither=Option A", "--fields"}).status, 0);

    host::Effect effect = host::Library::load().open("posterize");
    effect.set("Dither", "Option A");
    const Pixels in = contentOf(path("in.png")).first;
    const std::size_t row = width * 4;
    Pixels expected(in.size());
    for (std::size_t field = 0; field < 2; ++field) {
        Pixels rows;
        for (std::size_t y = field; y < height; y += 2) {
            rows.insert(rows.end(), in.begin() + y * row, in.begin() + (y + 1) * row);
        }
        const int count = static_cast<int>(rows.size() / row);
        rows = rendered(effect, rows, width, count, 2);
        for (std::size_t y = field; y < height; y += 2) {
            std::copy_n(rows.begin() + y / 2 * row, row, expected.begin() + y * row);
        }
    }
    const Pixels actual = contentOf(path("out.png")).first;
    EXPECT_EQ(actual, expected);
    EXPECT_NE(actual, rendered(effect, in, width, height, 3));
}

TEST_F(PaintPicture, LeavesOneHalfAsItWas) {
    const int width = 40;
    const int height = 30;
    testing::makeColors(path("in.png"), width, height);
    ASSERT_EQ(paint("in.png", "painted.png").status, 0);
    ASSERT_EQ(paint("in.png", "left.png", {"--before-after"}).status, 0);
    ASSERT_EQ(paint("in.png", "top.png", {"--before-after=top"}).status, 0);
    const Pixels before = contentOf(path("in.png")).first;
    const Pixels after = contentOf(path("painted.png")).first;
    const Pixels left = contentOf(path("left.png")).first;
    const Pixels top = contentOf(path("top.png")).first;
    constexpr int kLine = 2;  // pixels to both sides of the middle
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::size_t at = static_cast<std::size_t>(y * width + x) * 4 + 1;
            if (std::abs(2 * x + 1 - width) > 2 * kLine) {
                ASSERT_EQ(left[at], (x < width / 2 ? before : after)[at]) << x << ',' << y;
            }
            if (std::abs(2 * y + 1 - height) > 2 * kLine) {
                ASSERT_EQ(top[at], (y < height / 2 ? before : after)[at]) << x << ',' << y;
            }
        }
        ASSERT_EQ(left[static_cast<std::size_t>(y * width + width / 2) * 4], 255);
        ASSERT_EQ(left[static_cast<std::size_t>(y * width + width / 2 - kLine) * 4], 0);
    }
    testing::makePicture(path("dot.png"), 1, 1, false);
    EXPECT_EQ(paint("dot.png", "dots.png", {"--before-after"}).status, 0);
}

TEST_F(PaintPicture, TellsInADryRunWhatItWouldDo) {
    testing::makePicture(path("in.png"), 64, 48, true);
    testing::writeFile(path("there.png"), "precious");
    const Result result =
        paint("in.png", "out.jpg", {"--dry-run", "--scale", "50%", "-s", "color=33"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, AllOf(HasSubstr("picture, png, 64x48"), HasSubstr("posterize"),
                                  HasSubstr("out.jpg: picture, mjpeg, 32x24"), HasSubstr("33")));
    EXPECT_THAT(result.err, HasSubstr("no room for transparency"));
    EXPECT_EQ(paint("in.png", "there.png", {"--dry-run"}).status, 1);
    EXPECT_EQ(paint("in.png", "gone/out.png", {"--dry-run"}).status, 1);
    EXPECT_EQ(paint("in.png", "out.mp4", {"--dry-run"}).status, 2);
    EXPECT_EQ(paint("in.png", "out.png", {"--dry-run", "-s", "colour=1"}).status, 2);
    EXPECT_EQ(files(), (Names{"in.png", "there.png"}));
}

TEST_F(PaintPicture, WritesEveryTypeAndKeepsAlphaWhereItCan) {
    const int width = 33;
    const int height = 17;
    testing::makePicture(path("in.webp"), width, height, true);
    const Content in = contentOf(path("in.webp"));
    for (const char* type : {"png", "tif", "tiff", "webp", "jpg", "JPEG", "ppm"}) {
        const std::string name = std::string("out.") + type;
        const Result result = paint("in.webp", name);
        ASSERT_EQ(result.status, 0) << type << result.err;
        const Content out = contentOf(path(name));
        EXPECT_EQ(out.width, width) << type;
        EXPECT_EQ(out.height, height) << type;
        EXPECT_EQ(out.numbers, in.numbers) << type;
        const bool keeps = std::string("png tiff webp").find(type) != std::string::npos;
        EXPECT_EQ(result.err.find("no room for transparency") == std::string::npos, keeps) << type;
        for (std::size_t i = 3; i < in.first.size(); i += 4) {
            ASSERT_EQ(out.first[i], keeps ? in.first[i] : 255) << type << " byte " << i;
        }
    }
    EXPECT_THAT(paint("in.webp", "quiet.jpg", {"--quiet"}).err, IsEmpty());
}

TEST_F(PaintPicture, PaintsASinglePixel) {
    for (const char* type : {"png", "tif", "webp", "jpg", "ppm"}) {
        const std::string in = std::string("in.") + type;
        const std::string out = std::string("out.") + type;
        testing::makePicture(path(in), 1, 1, false);
        for (const std::vector<std::string>& more :
             {std::vector<std::string>{}, {"--fields", "-f"}}) {
            const Result result = paint(in, out, more);
            ASSERT_EQ(result.status, 0) << type << result.err;
            EXPECT_EQ(contentOf(path(out)).first.size(), 4U) << type;
        }
    }
}

TEST_F(PaintPicture, ReplacesAFileOnlyWhenForced) {
    testing::makePicture(path("in.png"), 16, 16, false);
    testing::writeFile(path("out.png"), "precious");
    const Result refused = paint("in.png", "out.png");
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, AllOf(HasSubstr("out.png exists"), HasSubstr("--force")));
    EXPECT_EQ(testing::readFile(path("out.png")), "precious");
    EXPECT_EQ(paint("in.png", "out.png", {"--force"}).status, 0);
    EXPECT_EQ(contentOf(path("out.png")).width, 16);

    // Through a link, the file behind it is replaced.
    testing::writeFile(path("target.png"), "precious");
    std::filesystem::create_symlink("target.png", path("link.png"));
    EXPECT_EQ(paint("in.png", "link.png", {"--force"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.png")));
    EXPECT_EQ(contentOf(path("target.png")).width, 16);
    EXPECT_EQ(files(), (Names{"in.png", "out.png", "target.png", "link.png"}));
}

TEST_F(PaintPicture, FailsWithoutATraceWhereItCannotReadOrWrite) {
    testing::makePicture(path("in.png"), 16, 16, false);
    std::filesystem::create_directory(path("folder.png"));
    testing::writeFile(path("text.png"), "not a picture at all");
    testing::writeFile(path("empty.png"), "");
    const auto expectFailure = [&](const char* input, const char* output, const char* message) {
        const Result result = paint(input, output, {"-f"});
        EXPECT_EQ(result.status, 1) << input << ' ' << output;
        EXPECT_THAT(result.err, HasSubstr(message));
    };
    expectFailure("in.png", "missing/out.png", "missing/out.png: No such file or directory");
    expectFailure("in.png", "/proc/out.png", "cannot write /proc/out.png");
    expectFailure("in.png", "folder.png", "is a folder");
    expectFailure("gone.png", "out.png", "gone.png");
    expectFailure("text.png", "out.png", "cannot read text.png");
    expectFailure("empty.png", "out.png", "it is empty");
    const Result full = paint("in.png", "/dev/full", {"-f"});
    EXPECT_EQ(full.status, 2);  // no extension
    EXPECT_EQ(files(), (Names{"in.png", "folder.png", "text.png", "empty.png"}));
}

TEST_F(PaintPicture, TellsWhatTheEffectCouldNotRender) {
    testing::makePicture(path("in.png"), 16, 16, false);
    const Result result = run({"paint", "in.png", "-e", "stubborn-brush", "-o", "out.png"},
                              BRUSHWORKS_TESTING_LIBRARY);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("the effect stubborn-brush could not render frame 0"));
    EXPECT_EQ(files(), Names{"in.png"});
}

}  // namespace
}  // namespace brushworks::tools
