// Whole renders through the OpenGL host, with an effect of the test's own.
#include <epoxy/gl.h>
#include <gmock/gmock.h>

#include <thread>

#include "host/gl/testing_gl.h"

namespace brushworks::host::gl {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

constexpr std::string_view kVertex = R"(#version 120
varying vec2 at;
void main() { gl_Position = gl_Vertex; at = gl_Vertex.xy * 0.5 + 0.5; }
)";
constexpr std::string_view kFragment = R"(#version 120
varying vec2 at;
uniform sampler2D source;
void main() { gl_FragColor = 1.0 - texture2D(source, at); }
)";

/// Inverts a picture, by way of a texture of its own.
class InvertingEffect final : public IVideoGPUEffect {
  public:
    std::uint32_t QueryInterface(const _GUID&, void**) override { return kNoInterface; }
    std::uint32_t AddRef() override { return 1; }
    std::uint32_t Release() override { return 1; }
    const char* GetName() override { return "Invert"; }
    unsigned int GetCaps() override { return 0; }
    bool EnumParam(unsigned int, EffectParamSetup*) override { return false; }
    bool Render(IVideoHost*, FrameParams*, FrameParams*, FrameParams*, RenderInfo*) override {
        return false;
    }
    const char* EnumPreset(unsigned int) override { return nullptr; }
    bool EnumPresetData(unsigned int, unsigned int, EffectParam*) override { return false; }
    bool GetGPUCaps(IVideoHost* host, IGLContext* context, GPUCaps* caps, unsigned int) override {
        *caps = {0, context->GetARBHelper()->bShaderObjects ? 1 : 0, true};
        return hostGLOf(host) != nullptr;
    }
    bool RenderGPU(RenderType, IVideoHost* host, IGLContext* context, TextureParams* source,
                   TextureParams*, TextureParams* destination, RenderInfo*) override {
        IVideoHostGL* gl = hostGLOf(host);
        scratch = {};
        program = nullptr;
        const bool done = makeAll(*gl, context, *source) && draw(*gl, context, *source, scratch) &&
                          draw(*gl, context, scratch, *destination) &&
                          draw(*gl, context, *source, *destination);
        gl->SetRenderTarget(context, nullptr, 0, false, false);
        if (!forgets) freeAll(*gl);
        return done;
    }
    void freeAll(IVideoHostGL& gl) {
        gl.FreeTexture(&scratch, scratch.pTexture != nullptr);
        gl.FreeShader(program);
    }

    bool forgets = false;
    TextureParams scratch;
    IGLShader* program = nullptr;

  private:
    static IVideoHostGL* hostGLOf(IVideoHost* host) {
        void* face = nullptr;
        if (host->QueryInterface(IID_VideoHostGL, &face) != kInterfaceFound) return nullptr;
        auto* gl = static_cast<IVideoHostGL*>(face);
        gl->Release();
        return gl;
    }
    bool makeAll(IVideoHostGL& gl, IGLContext* context, const TextureParams& like) {
        const auto bytes = [](std::string_view text) {
            return reinterpret_cast<const std::uint8_t*>(text.data());
        };
        return gl.CreateTexture(context, scratch, nullptr, like.nWidth, like.nHeight,
                                like.pfPixelFormat, nullptr, 0, nullptr) &&
               gl.CreateShader(context, &program, bytes(kVertex), bytes(kFragment), nullptr,
                               kVertex.size(), kFragment.size(), 0, 0, 0, 0, 0, 0, 0);
    }
    bool draw(IVideoHostGL& gl, IGLContext* context, const TextureParams& from,
              const TextureParams& target) {
        if (!gl.SetRenderTarget(context, &target, 0, false, false)) return false;
        program->Bind(target.nWidth, target.nHeight);
        program->SetTex2D("source", from.pTexture);
        glRectf(-1, -1, 1, 1);
        return true;
    }
};

constexpr RenderInfo kWholeFrame = {kRenderHasFieldMode, 0, 0, kFieldModeFrame};

Picture inverted(Picture picture) {
    for (std::uint8_t& sample : picture.bytes) sample = static_cast<std::uint8_t>(255 - sample);
    return picture;
}

Ref<VideoHost> noValues() {
    return VideoHost::create({}, {});
}

class RendererTest : public GLTest {
  protected:
    InvertingEffect effect;
    Ref<VideoHost> values = noValues();
};

TEST_F(RendererTest, RendersAndFailsWithoutLeavingAnything) {
    Picture source = testPicture(37, 23, PixelFormatARGB8);
    Picture result(37, 23, PixelFormatARGB8);
    Picture expected = inverted(source);
    const Picture untouched = result;
    for (int request = 0;; ++request) {
        ASSERT_LT(request, 10);
        const Ref<RefusingHostGL> host = RefusingHostGL::create(hostGL(), request);
        const bool rendered = renderer().renderThrough(*host, effect, *values, source.frame(),
                                                       result.frame(), kWholeFrame);
        EXPECT_EQ(rendered, !host->refused());
        EXPECT_THAT(renderer().takeProblems(), ElementsAre());
        if (rendered) break;
        EXPECT_EQ(result.bytes, untouched.bytes);
    }
    EXPECT_TRUE(alike(result.frame(), expected.frame(), {}));
    *(result.bytes.data() + 4 * (37 * 5 + 7) + 1) ^= 0x80;
    const auto told = alike(result.frame(), expected.frame(), {.largest = 2});
    EXPECT_THAT(told.message(), HasSubstr("the largest difference is 128 at 7,5"));
    EXPECT_TRUE(
        alike(result.frame(), expected.frame(), {.largest = 2, .share = 0.002, .psnr = 30}));

    GPUCaps caps{};
    renderer().release();
    EXPECT_TRUE(hostGL().TestEffect(&effect, &caps));
    EXPECT_EQ(caps.nGPUSupported, 1);
    EXPECT_FALSE(renderer().render(effect, *values, source.frame(), result.frame(), kWholeFrame));
    EXPECT_TRUE(renderer().makeCurrent());
    renderer().takeProblems();
}

TEST_F(RendererTest, NoticesWhatAnEffectForgets) {
    Renderer own = Renderer::create({.debug = true});
    Picture source = testPicture(4, 4, PixelFormatBGRA8);
    effect.forgets = true;
    EXPECT_TRUE(own.render(effect, *values, source.frame(), source.frame(), kWholeFrame));
    EXPECT_THAT(own.takeProblems(),
                UnorderedElementsAre(HasSubstr("did not free a texture of 4 by 4"),
                                     HasSubstr("did not free a program")));
    effect.freeAll(own.hostGL());
    own.release();
}

TEST_F(RendererTest, PassesFramesOnWhileTheNextOnesRender) {
    std::vector<Picture> sources(5, testPicture(9, 6, PixelFormatBGRA32f));
    std::vector<Picture> results(5, Picture(9, 6, PixelFormatBGRA32f));
    EXPECT_FALSE(renderer().collect());
    for (std::size_t i = 0; i < 5; ++i) {
        sources[i].bytes[0] = static_cast<std::uint8_t>(i);
        ASSERT_TRUE(renderer().submit(effect, *values, sources[i].frame(), results[i].frame(),
                                      kWholeFrame));
    }
    EXPECT_TRUE(renderer().collect() && renderer().collect());
    EXPECT_FALSE(renderer().collect());
    for (std::size_t i = 0; i < 5; ++i) {
        Picture expected(9, 6, PixelFormatBGRA32f);
        ASSERT_TRUE(
            renderer().render(effect, *values, sources[i].frame(), expected.frame(), kWholeFrame));
        EXPECT_EQ(results[i].bytes, expected.bytes);
    }
}

/// On a thread of its own, which the context then leaves.
void renderOnce(Renderer& own) {
    InvertingEffect effect;
    const Ref<VideoHost> values = noValues();
    Picture source = testPicture(16, 16, PixelFormatBGRA8);
    Picture result(16, 16, PixelFormatBGRA8);
    EXPECT_TRUE(own.render(effect, *values, source.frame(), result.frame(), kWholeFrame));
    EXPECT_TRUE(alike(result.frame(), inverted(source).frame(), {}));
    EXPECT_THAT(own.takeProblems(), ElementsAre());
    own.release();
}

TEST_F(RendererTest, MovesToAnotherThreadAndWorksBesideOthers) {
    Renderer moved = Renderer::create({.debug = true});
    moved.release();
    std::jthread first([&] {
        EXPECT_TRUE(moved.makeCurrent());
        renderOnce(moved);
    });
    std::jthread second([&] {
        Renderer own = Renderer::create({.debug = true});
        renderOnce(own);
    });
}

}  // namespace
}  // namespace brushworks::host::gl
