// The OpenGL host from the library's side: textures, buffers, programs, targets.
#include <epoxy/gl.h>
#include <gmock/gmock.h>

#include <cstring>

#include "host/gl/testing_gl.h"

namespace brushworks::host::gl {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

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
                std::vector<std::uint8_t> source =
                    someBytes(std::size_t(span) * std::size_t(height));
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
                    const std::size_t row = std::size_t(y) * std::size_t(span);
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

constexpr char kColourFragment[] = R"(#version 120
uniform float value;
uniform float first = 0.25;
void main() { gl_FragColor = vec4(value + first); }
)";

/// Texels of a texture that has four channels of bytes.
std::vector<std::uint8_t> texelsOf(HostGL& host, TextureParams& texture) {
    std::vector<std::uint8_t> texels(std::size_t(texture.nWidth * texture.nHeight * 4));
    EXPECT_TRUE(host.ReadTexture(&host.context(), &texture, texture.nWidth, texture.nHeight,
                                 texture.nWidth * 4, texels.data()));
    return texels;
}

TEST_F(HostGLTest, ResolvesWhatWasDrawnWithManySamples) {
    ScopedTexture target(hostGL(), 8, 8, PixelFormatBGRA8);
    IGLShader* program = makeProgram(hostGL(), kQuadVertex, kColourFragment);
    ASSERT_TRUE(program);
    for (const int samples : {4, 1000}) {  // so many that none are had
        EXPECT_TRUE(hostGL().SetRenderTarget(&context(), &target.record, samples, false, false));
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT);
        EXPECT_TRUE(program->Bind(8, 8));
        EXPECT_TRUE(program->SetFloat1("value", 1));
        drawQuad(-0.125F);  // ends in the middle of a pixel
        EXPECT_TRUE(hostGL().ResolveRenderTarget(&context(), &target.record));
        const std::vector<std::uint8_t> texels = texelsOf(hostGL(), target.record);
        EXPECT_EQ(texels[2 * 4], 255);
        EXPECT_EQ(texels[3 * 4] > 0 && texels[3 * 4] < 255, samples == 4) << int(texels[3 * 4]);
        EXPECT_EQ(texels[4 * 4], 0);
        drawQuad();  // goes to the texture from now on
        EXPECT_EQ(texelsOf(hostGL(), target.record)[4 * 4], 255);
    }
    hostGL().FreeShader(program);
}

TEST_F(HostGLTest, ReusesWhatWasGivenBackAsIfItWereNew) {
    ScopedTexture target(hostGL(), 1, 1, PixelFormatBGRA8);
    hostGL().SetRenderTarget(&context(), &target.record, 0, false, false);
    const Counters before = hostGL().counters();
    for (int round = 0; round < 2; ++round) {
        IGLShader* first = makeProgram(hostGL(), kQuadVertex, kColourFragment);
        IGLShader* second = makeProgram(hostGL(), kQuadVertex, kColourFragment);
        ASSERT_TRUE(first && second);
        EXPECT_TRUE(first->Bind(1, 1));
        drawQuad();
        EXPECT_EQ(texelsOf(hostGL(), target.record)[0], 64) << round;
        EXPECT_TRUE(first->SetFloat1("first", 0.5F) && first->SetFloat1("value", 0.5F));
        EXPECT_TRUE(second->Bind(1, 1));
        drawQuad();
        EXPECT_EQ(texelsOf(hostGL(), target.record)[0], 64) << round;
        hostGL().FreeShader(first);
        hostGL().FreeShader(second);
        { ScopedTexture texture(hostGL(), 77, 3, PixelFormatMono32f); }
        IGLBuffer* buffer = nullptr;
        EXPECT_TRUE(hostGL().CreateBuffer(&context(), &buffer, "12345", 5, GL_DYNAMIC_DRAW, 0, 0));
        const char* bytes = static_cast<const char*>(buffer->Map(3, GL_READ_ONLY));
        EXPECT_TRUE(bytes != nullptr && *bytes == '4');
        EXPECT_EQ(buffer->Map(5, GL_READ_ONLY), nullptr);
        hostGL().FreeBuffer(buffer, true);
    }
    const Counters after = hostGL().counters();
    EXPECT_LE(after.programsCompiled - before.programsCompiled, 2);
    EXPECT_GE(after.programsReused - before.programsReused, 2);
    EXPECT_EQ(after.texturesMade - before.texturesMade, 1);
    EXPECT_EQ(after.texturesReused - before.texturesReused, 1);
    EXPECT_EQ(after.buffersMade - before.buffersMade, 1);
    EXPECT_EQ(after.buffersReused - before.buffersReused, 1);
}

TEST_F(HostGLTest, SaysWhyAProgramFailsAndTakesClearTextsAlone) {
    EXPECT_FALSE(makeProgram(hostGL(), kQuadVertex, "#version 120\nvoid main() { nonsense; }\n"));
    EXPECT_THAT(hostGL().lastShaderError(),
                AllOf(HasSubstr("fragment stage"), HasSubstr("2: void main() { nonsense; }")));
    EXPECT_FALSE(makeProgram(hostGL(), kQuadVertex, ""));
    const auto* text = reinterpret_cast<const std::uint8_t*>(kQuadVertex);
    IGLShader* program = nullptr;
    EXPECT_FALSE(hostGL().CreateShader(&context(), &program, text, text, nullptr, 9, 9, 0, 0, 1, 0,
                                       0, 0, 0));
    EXPECT_EQ(program, nullptr);
    hostGL().FreeShader(nullptr);
}

TEST_F(HostGLTest, LinksGeometryStagesAndNamesTheUniformsThatAProgramHas) {
    const std::string longName(90, 'n');
    const std::string fragment = "#version 120\nuniform vec4 list[3];\nuniform float " + longName +
                                 ";\nvoid main() { gl_FragColor = list[2] * " + longName + "; }\n";
    IGLShader* program = makeProgram(hostGL(), R"(#version 120
void main() { gl_Position = gl_ModelViewProjectionMatrix * gl_Vertex; }
)",
                                     fragment, R"(#version 150 compatibility
layout(points) in;
layout(triangle_strip, max_vertices = 3) out;
void main() {
    for (int i = 0; i < 3; ++i) {
        gl_Position = gl_in[0].gl_Position + vec4(i & 1, i >> 1, 0, 0);
        EmitVertex();
    }
}
)");
    ASSERT_TRUE(program);
    std::vector<char> entries(IGLShader::kUniformEntryBytes * 2, '?');
    ASSERT_EQ(program->GetUniforms(nullptr), 2);
    program->GetUniforms(entries.data());
    EXPECT_THAT((std::vector<std::string>{entries.data(), &entries[68]}),
                UnorderedElementsAre("list", longName.substr(0, 67)));
    hostGL().FreeShader(program);
    EXPECT_TRUE(context().GetARBHelper()->bGeometryShader4);
    EXPECT_TRUE(context().GetARBHelper()->bDrawInstanced);
}

TEST_F(HostGLTest, KeepsNamedTexturesUntilAnotherSizeIsAskedFor) {
    { EXPECT_FALSE(ScopedTexture(hostGL(), 4, 4, PixelFormatBGRA8, "kept").existed); }
    { EXPECT_TRUE(ScopedTexture(hostGL(), 4, 4, PixelFormatBGRA8, "kept").existed); }
    ScopedTexture first(hostGL(), 4, 4, PixelFormatBGRA8, "kept");
    ScopedTexture larger(hostGL(), 5, 4, PixelFormatBGRA8, "kept");
    EXPECT_FALSE(larger.existed);
    EXPECT_TRUE(first.record.pTexture->IsValid());
}

TEST_F(HostGLTest, RefusesSizesAndRegionsThatCannotBe) {
    for (const int size : {0, -1, 1 << 20}) {
        EXPECT_FALSE(ScopedTexture(hostGL(), size, 4, PixelFormatBGRA8).made);
        EXPECT_FALSE(ScopedTexture(hostGL(), 4, size, PixelFormatBGRA8).made);
    }
    EXPECT_FALSE(ScopedTexture(hostGL(), 4, 4, static_cast<PixelFormat>(5)).made);
    IGLBuffer* buffer = nullptr;
    EXPECT_FALSE(hostGL().CreateBuffer(&context(), &buffer, nullptr, 0, GL_DYNAMIC_DRAW, 0, 0));

    ScopedTexture texture(hostGL(), 4, 4, PixelFormatBGRA8);
    TextureParams outside = texture.record;
    outside.nLeft = 1;
    EXPECT_FALSE(hostGL().SetRenderTarget(&context(), &outside, 0, false, false));
    std::uint8_t pixels[64];
    EXPECT_FALSE(hostGL().ReadTexture(&context(), &outside, 4, 4, 16, pixels));
    EXPECT_FALSE(texture.record.pTexture->Upload(PixelFormatMono8, pixels, 0));
}

TEST_F(HostGLTest, CollectsWhatWasDoneWronglyAndWhatWasLeft) {
    glEnable(0xBAD);
    EXPECT_THAT(renderer().takeProblems(), Contains(HasSubstr("driver: ")));
    const std::uint64_t mark = hostGL().mark();
    ScopedTexture texture(hostGL(), 4, 3, PixelFormatBGRA8);
    EXPECT_THAT(hostGL().aliveSince(mark), ElementsAre("texture of 4 by 3"));
    TextureParams copy = texture.record;
    copy.pTexture->AddRef();
    hostGL().FreeTexture(&copy, true);
    EXPECT_THAT(renderer().takeProblems(), ElementsAre(HasSubstr("reference is left")));
    EXPECT_FALSE(texture.record.pTexture->IsValid());
    texture.record.pTexture->Release();
    hostGL().FreeTexture(&texture.record, true);
    EXPECT_THAT(renderer().takeProblems(), ElementsAre(HasSubstr("no texture of this host")));
}

TEST_F(HostGLTest, TellsAboutTheStack) {
    const int length = hostGL().GetInfoString(7, nullptr, 0);
    std::string text(std::size_t(length), '?');
    EXPECT_EQ(hostGL().GetInfoString(7, text.data(), length), length);
    EXPECT_THAT(text, AllOf(HasSubstr(renderer().description().renderer), EndsWith("\n")));
    EXPECT_EQ(hostGL().GetInfoString(6, nullptr, 0), 0);
}
}  // namespace
}  // namespace brushworks::host::gl
