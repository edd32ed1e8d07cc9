// `paint --gpu` and `gpu`: the pictures of the OpenGL host, or a reason.
#include <gmock/gmock.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <optional>

#include "host/error.h"
#include "host/frame_params.h"
#include "host/gl/renderer.h"
#include "host/library.h"
#include "media/reader.h"
#include "render_frame.h"
#include "testing_command.h"
#include "testing_media.h"

namespace brushworks::tools {
namespace {

using ::testing::AllOf;
using testing::CommandTest;
using ::testing::HasSubstr;
using testing::Result;
using testing::samplesOf;

/// Where OpenGL is needed.
class PaintGpu : public CommandTest {
  protected:
    void SetUp() override {
#ifdef __SANITIZE_THREAD__
        GTEST_SKIP() << "OpenGL is built without the sanitizer, which reports its threads";
#endif
        try {
            m_renderer.emplace(host::gl::Renderer::create());
        } catch (const host::Error& error) {
            if (std::getenv("BRUSHWORKS_REQUIRE_GL") != nullptr) FAIL() << error.what();
            GTEST_SKIP() << error.what();
        }
    }
    const host::gl::GLDescription& opengl() {
        return m_renderer->description();
    }

    /// All samples of a file that Charcoal has rendered without the command line.
    std::vector<std::uint8_t> charcoal(const std::string& name) {
        const host::Effect effect = host::Library::load().open("charcoal");
        media::Reader reader(path(name));
        std::vector<std::uint8_t> samples;
        while (const media::FramePtr frame = reader.next()) {
            testing::appendSamples(*charcoal(effect, *frame), samples);
        }
        return samples;
    }

  private:
    media::FramePtr charcoal(const host::Effect& effect, const AVFrame& frame) {
        const media::Raster raster = media::rasterOf(frame);
        const bool fields = frame.interlaced_frame != 0;
        media::Canvas source(frame.width, frame.height, media::isDeep(raster.format));
        const media::Canvas painted(frame.width, frame.height, source.isDeep());
        media::CanvasConverter converter;
        converter.read(frame, source, fields);
        const RenderInfo info = {kRenderHasFieldMode, 0, 0, std::int16_t(fields ? 2 : 3)};
        const auto render = [&](const FrameParams& from, const FrameParams& to) {
            EXPECT_TRUE(m_renderer->render(effect, from, to, info));
        };
        if (!fields) render(recordOf(source), recordOf(painted));
        for (int field = fields ? 1 : -1; field >= 0; --field) {
            render(host::fieldOf(recordOf(source), field), host::fieldOf(recordOf(painted), field));
        }
        return converter.write(painted, raster, fields);
    }

    std::optional<host::gl::Renderer> m_renderer;
};

TEST_F(PaintGpu, PaintsVideosAndPicturesAsTheHostRendersThem) {
    struct Case {
        const char* input;
        const char* format;
        bool fields;
        const char* option;
    };
    for (const auto& [input, format, fields, option] :
         {Case{"in.mkv", "bgra", true, "--gpu"}, {"in.png", "rgba64be", false, "--gpu"}}) {
        const std::string output = std::string("out-") + input;
        testing::makeNoise(path(input), format, fields);
        const Result result = run(
            {"paint", input, "-e", "charcoal", "--lossless", "--jobs", "3", option, "-o", output});
        ASSERT_EQ(result.status, 0) << result.err;
        EXPECT_THAT(result.err, HasSubstr("note: rendering with " + opengl().renderer));
        EXPECT_TRUE(samplesOf(path(output)).bytes == charcoal(input)) << input;
        ASSERT_EQ(run({"paint", input, "-e", "charcoal", "--lossless", "-f", "-o", output}).status,
                  0);
        EXPECT_FALSE(samplesOf(path(output)).bytes == charcoal(input)) << "the processor's";
    }
}

TEST_F(PaintGpu, PosterizesBytesAsTheProcessorDoes) {
    testing::makeNoise(path("in.png"), "rgba");
    ASSERT_EQ(paint("in.png", "card.png", {"--gpu", "-p", "Subdued"}).status, 0);
    ASSERT_EQ(paint("in.png", "processor.png", {"-p", "Subdued"}).status, 0);
    EXPECT_TRUE(testing::readFile(path("card.png")) == testing::readFile(path("processor.png")));
}

TEST_F(PaintGpu, RefusesWhatDoesNotRenderOrGoesOnWithout) {
    testing::makePicture(path("in.png"), 16, 16, false);
    const auto fickle = [&](const char* option) {
        return run({"paint", "in.png", "-e", "fickle-brush", "-f", option, "-o", "out.png"},
                   BRUSHWORKS_TESTING_LIBRARY);
    };
    const std::string reason = "the effect fickle-brush does not render on the graphics card here";
    Result result = fickle("--gpu");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr(reason + "; leave out --gpu, or use --gpu=auto\n"));
    EXPECT_EQ(files(), std::set<std::string>{"in.png"});
    result = fickle("--gpu=auto");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, HasSubstr("note: rendering on the processor without OpenGL: "));
    EXPECT_THAT(result.err, HasSubstr(opengl().hardware ? reason : "is no graphics card"));

    testing::makePicture(path("wide.png"), 40000, 1, false);
    result = paint("wide.png", "wide-out.png", {"--gpu"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("frames of 40000x1 are too large for " + opengl().renderer));
    EXPECT_EQ(paint("in.png", "out.png", {"-f", "--gpu=hardware"}).status,
              opengl().hardware ? 0 : 1);
}

TEST_F(PaintGpu, TellsWhatRenders) {
    const Result text = run({"gpu"});
    EXPECT_EQ(text.status, 0);
    EXPECT_THAT(text.out, AllOf(HasSubstr("Renderer  " + opengl().renderer),
                                HasSubstr("  charcoal        yes\n")));
    const auto json = nlohmann::json::parse(run({"gpu", "--json"}).out);
    EXPECT_EQ(json["renderer"], opengl().renderer);
    EXPECT_EQ(json["hardware"], opengl().hardware);
    EXPECT_EQ(json["effects"]["posterize"], true);
    EXPECT_EQ(json["features"]["GL_ARB_shader_objects"], true);
    const auto none = nlohmann::json::parse(run({"gpu", "--json"}, BRUSHWORKS_TESTING_LIBRARY).out);
    EXPECT_EQ(none["effects"]["fickle-brush"], false);
}

class PaintWithoutOpenGL : public CommandTest {};

TEST_F(PaintWithoutOpenGL, SaysWhatToInstallOrGoesOn) {
    testing::makePicture(path("in.png"), 16, 16, false);
    setenv("__EGL_VENDOR_LIBRARY_FILENAMES", "/dev/null", 1);
    const Result refused = paint("in.png", "out.png", {"--gpu"});
    const Result without = paint("in.png", "out.png", {"--gpu=auto"});
    const Result told = run({"gpu"});
    unsetenv("__EGL_VENDOR_LIBRARY_FILENAMES");
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, AllOf(HasSubstr("install libegl1"), HasSubstr("use --gpu=auto")));
    EXPECT_EQ(without.status, 0);
    EXPECT_THAT(without.err, HasSubstr("rendering on the processor without OpenGL"));
    EXPECT_EQ(told.status, 1);
    EXPECT_THAT(told.err, HasSubstr("install libegl1"));
    EXPECT_EQ(paint("in.png", "out.png", {"-f", "--gpu=atuo"}).status, 2);
}

}  // namespace
}  // namespace brushworks::tools
