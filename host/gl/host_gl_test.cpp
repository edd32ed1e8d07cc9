// The OpenGL host from the library's side: textures, buffers, programs, targets.
#include <epoxy/gl.h>
#include <gmock/gmock.h>

#include <cstring>

#include "host/gl/testing_gl.h"

namespace brushworks::host::gl {
namespace {

class HostGLTest : public GLTest {};

constexpr PixelFormat kFormats[] = {PixelFormatBGRA8,   PixelFormatARGB8, PixelFormatBGRA32f,
                                    PixelFormatARGB32f, PixelFormatMono8, PixelFormatMono32f};

/// Different bytes everywhere that are harmless as floats too.
std::vector<std::uint8_t> someBytes(std::size_t size) {
    std::vector<std::uint8_t> bytes(size);
    std::uint32_t state = 1;
    for (std::uint8_t& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<std::uint8_t>(state >> 24 & 0x3F);
    }
    return bytes;
}

/// A program of clear texts; null, like the host's answer, when they do not compile.
IGLShader* makeProgram(HostGL& host, std::string_view vertex, std::string_view fragment,
                       std::string_view geometry = {}) {
    const auto bytes = [](std::string_view text) {
        return reinterpret_cast<const std::uint8_t*>(text.data());
    };
    const auto size = [](std::string_view text) { return static_cast<std::uint32_t>(text.size()); };
    IGLShader* program = nullptr;
    const bool made = host.CreateShader(&host.context(), &program, bytes(vertex), bytes(fragment),
                                        bytes(geometry), size(vertex), size(fragment),
                                        size(geometry), 0, 0, 0, 0, 0, 0);
    EXPECT_EQ(made, program != nullptr);
    return program;
}

constexpr char kQuadVertex[] = R"(#version 120
varying vec2 at;
void main() { gl_Position = gl_Vertex; at = gl_Vertex.xy * 0.5 + 0.5; }
)";

void drawQuad(float right = 1) {
    glBegin(GL_TRIANGLE_STRIP);
    glVertex2f(-1, -1);
    glVertex2f(-1, 1);
    glVertex2f(right, -1);
    glVertex2f(right, 1);
    glEnd();
}

/// A texture of the host that is freed at the end.
struct ScopedTexture {
    ScopedTexture(HostGL& maker, int width, int height, PixelFormat format,
                  const char* name = nullptr)
        : host(maker) {
        made = host.CreateTexture(&host.context(), record, name, width, height, format, nullptr, 0,
                                  &existed);
    }
    ~ScopedTexture() { host.FreeTexture(&record, true); }
    ScopedTexture(const ScopedTexture&) = delete;
    ScopedTexture& operator=(const ScopedTexture&) = delete;

    HostGL& host;
    TextureParams record;
    bool existed = false;
    bool made;
};

TEST_F(HostGLTest, DrawsASwappedTextureIntoARegionInTheOrderThatEffectsCountOn) {
    std::uint8_t texel[] = {10, 20, 30, 40};  // A, R, G, B
    ScopedTexture target(hostGL(), 6, 5, PixelFormatBGRA8);
    ScopedTexture other(hostGL(), 1, 1, PixelFormatBGRA32f);
    std::vector<std::uint8_t> pixels(6 * 5 * 4, 1);
    ASSERT_TRUE(target.record.pTexture->Upload(PixelFormatBGRA8, pixels.data(), 0));
    std::optional<TextureParams> source =
        renderer().upload({texel, 1, 1, 4, 4, 0, 0, PixelFormatARGB8, false});
    IGLShader* program = makeProgram(hostGL(), kQuadVertex, R"(#version 120
varying vec2 at;
uniform sampler2D Other, Tex;
uniform vec4 scale[2];
void main() { gl_FragColor = texture2D(Tex, at).grab * scale[1] + texture2D(Other, at) * scale[0]; }
)");
    ASSERT_TRUE(program && source);

    TextureParams region = target.record;
    region.nLeft = 2;
    region.nTop = 1;
    region.nWidth = 3;
    region.nHeight = 2;
    EXPECT_TRUE(hostGL().SetRenderTarget(&context(), &region, 0, false, false));
    EXPECT_TRUE(program->Bind(3, 2));
    EXPECT_TRUE(program->SetTex2D("Tex", source->pTexture));
    EXPECT_TRUE(program->SetTex2D("Other", other.record.pTexture));
    EXPECT_TRUE(program->SetFloat4("scale[1]", 1, 1, 1, 1));
    EXPECT_FALSE(program->SetFloat4("scale[2]", 1, 1, 1, 1));
    EXPECT_FALSE(program->SetInt1("SwapChannels", 1));
    EXPECT_FALSE(program->SetTex2D("at", source->pTexture));
    glUseProgramObjectARB(0);
    EXPECT_TRUE(program->Bind(3, 2));
    drawQuad();
    EXPECT_TRUE(hostGL().SetRenderTarget(&context(), nullptr, 0, false, false));
    glClear(GL_COLOR_BUFFER_BIT);
    EXPECT_TRUE(context().UseProgram(nullptr));

    EXPECT_TRUE(hostGL().ReadTexture(&context(), &target.record, 6, 5, 24, pixels.data()));
    for (int i = 0; i < 30; ++i) {
        const int x = i % 6;
        const int y = i / 6;
        const bool inside = x >= 2 && x < 5 && y >= 1 && y < 3;
        const std::uint8_t drawn[] = {40, 30, 20, 10};
        const std::uint8_t before[] = {1, 1, 1, 1};
        EXPECT_EQ(std::memcmp(&pixels[std::size_t(i * 4)], inside ? drawn : before, 4), 0)
            << x << ", " << y;
    }
    hostGL().FreeShader(program);
    hostGL().FreeTexture(&*source, true);
}

TEST_F(HostGLTest, PixelsOfEveryFormatComeBackWhateverTheirRows) {
    for (const PixelFormat format : kFormats) {
        const int bytes = pixelLayout(format)->bytes;
        for (const int gap : {0, 3 * bytes, 1, 7}) {
            for (const bool upwards : {false, true}) {
                const int width = 13;
                const int height = 5;
                const int span = width * bytes + gap;
                std::vector<std::uint8_t> source = someBytes(std::size_t(span * height));
                std::vector<std::uint8_t> target(source.size(), 0xEE);
                const auto frameOf = [&](std::vector<std::uint8_t>& memory) {
                    std::uint8_t* start = memory.data() + (upwards ? span * (height - 1) : 0);
                    return FrameParams{start, width,  height, upwards ? -span : span, bytes, 0,
                                       0,     format, false};
                };
                std::optional<TextureParams> texture =
                    renderer().upload(frameOf(source), 32, 17, 5, 3);
                ASSERT_TRUE(texture);
                ASSERT_TRUE(renderer().download(*texture, frameOf(target)));
                for (int y = 0; y < height; ++y) {
                    const std::size_t row = std::size_t(y * span);
                    EXPECT_EQ(std::memcmp(&source[row], &target[row], std::size_t(width * bytes)),
                              0)
                        << "format " << format << " gap " << gap << " row " << y;
                    EXPECT_TRUE(gap == 0 || target[row + std::size_t(width * bytes)] == 0xEE);
                }
                hostGL().FreeTexture(&*texture, true);
            }
        }
    }
}

}  // namespace
}  // namespace brushworks::host::gl
