// The arithmetic and the book-keeping of passes, with a host that only writes down what it is told.
#include "gpu/gpu_helper.h"

#include <gtest/gtest.h>

#include <map>

#include "gpu/gl_api.h"
#include "gpu/gpu_effect_helper.h"

namespace brushworks {
namespace {

/// An interface object on the stack.
template <class Interface>
class OnStack : public Interface {
  public:
    std::uint32_t QueryInterface(const _GUID&, void**) override { return kNoInterface; }
    std::uint32_t AddRef() override { return ++references; }
    std::uint32_t Release() override { return --references; }
    std::uint32_t references = 1;
};

struct Pair {
    float x, y;
    bool operator==(const Pair&) const = default;
};

class FakeShader final : public OnStack<IGLShader> {
  public:
    explicit FakeShader(std::vector<std::string> names) : m_names(std::move(names)) {}

    std::map<std::string, Pair> pairs;
    std::vector<float> matrix;
    int calls = 0;

    bool Bind(int, int) override { return true; }
    bool SetInt1(const char*, int) override { return ++calls > 0; }
    bool SetInt2(const char*, int, int) override { return ++calls > 0; }
    bool SetFloat1(const char*, float) override { return ++calls > 0; }
    bool SetFloat2(const char* name, float x, float y) override {
        pairs[name] = {x, y};
        return ++calls > 0;
    }
    bool SetFloat3(const char*, float, float, float) override { return ++calls > 0; }
    bool SetFloat4(const char*, float, float, float, float) override { return ++calls > 0; }
    bool SetMatf3(const char*, float* m) override {
        matrix.assign(m, m + 9);
        return ++calls > 0;
    }
    bool SetMatf4(const char*, float* m) override {
        matrix.assign(m, m + 16);
        return ++calls > 0;
    }
    bool SetTex2D(const char*, IGLTexture*) override { return ++calls > 0; }
    int GetUniforms(void* buffer) override {
        auto* entry = static_cast<char*>(buffer);
        for (const std::string& name : m_names)
            if (buffer) entry[name.copy(entry, 67)] = '\0', entry += kUniformEntryBytes;
        return static_cast<int>(m_names.size());
    }
    bool GetAttribLocation(const char*, int*) override { return false; }
    bool IsValid() override { return true; }

  private:
    std::vector<std::string> m_names;
};

class FakeContext final : public OnStack<IGLContext> {
  public:
    ARBHelper record{};
    std::map<unsigned int, int> integers;
    float color[4] = {0.1f, 0.2f, 0.3f, 0.4f};
    bool blend = true;
    int disabled = 0;

    ARBHelper* GetARBHelper() override { return &record; }
    bool GetIntegerv(unsigned int name, int* values, int) override {
        *values = integers[name];
        return true;
    }
    bool GetFloatv(unsigned int, float* values, int count) override {
        std::copy_n(color, count, values);
        return true;
    }
    bool Enable(unsigned int) override { return true; }
    bool Disable(unsigned int capability) override {
        if (capability == GL_BLEND) blend = false;
        return ++disabled > 0;
    }
    bool BlendColor(float r, float g, float b, float a) override {
        color[0] = r, color[1] = g, color[2] = b, color[3] = a;
        return true;
    }
    bool BlendEquationSeparate(unsigned int rgb, unsigned int alpha) override {
        integers[GL_BLEND_EQUATION_RGB] = static_cast<int>(rgb);
        integers[GL_BLEND_EQUATION_ALPHA] = static_cast<int>(alpha);
        return true;
    }
    bool BlendFuncSeparate(unsigned int sourceRgb, unsigned int destinationRgb,
                           unsigned int sourceAlpha, unsigned int destinationAlpha) override {
        integers[GL_BLEND_SRC_RGB] = static_cast<int>(sourceRgb);
        integers[GL_BLEND_DST_RGB] = static_cast<int>(destinationRgb);
        integers[GL_BLEND_SRC_ALPHA] = static_cast<int>(sourceAlpha);
        integers[GL_BLEND_DST_ALPHA] = static_cast<int>(destinationAlpha);
        return true;
    }
    bool UseProgram(IGLShader*) override { return true; }
    bool BindBuffer(unsigned int, IGLBuffer*) override { return true; }
};

class FakeHostGL final : public OnStack<IVideoHostGL> {
  public:
    int samples = -1;
    int refusals = 0;

    bool CreateTexture(IGLContext*, TextureParams&, const char*, int, int, PixelFormat, const void*,
                       int, bool*) override {
        return false;
    }
    bool CreateBuffer(IGLContext*, IGLBuffer**, const void*, int, unsigned int, int, int) override {
        return false;
    }
    bool CreateShader(IGLContext*, IGLShader**, const std::uint8_t*, const std::uint8_t*,
                      const std::uint8_t*, std::uint32_t, std::uint32_t, std::uint32_t,
                      std::uint32_t, std::uint32_t, std::uint32_t, std::uint64_t, std::uint64_t,
                      std::uint64_t) override {
        return false;
    }
    void FreeBuffer(IGLBuffer*, bool) override {}
    void FreeTexture(TextureParams* texture, bool) override { texture->pTexture = nullptr; }
    void FreeShader(IGLShader*) override {}
    bool SetRenderTarget(IGLContext*, const TextureParams*, int count, bool, bool) override {
        samples = count;
        return refusals-- <= 0;
    }
    bool ResolveRenderTarget(IGLContext*, TextureParams*) override { return true; }
    bool ReadTexture(IGLContext*, TextureParams*, int, int, int, void*) override { return false; }
    bool TestEffect(IVideoGPUEffect*, GPUCaps*) override { return false; }
    int GetInfoString(int, char*, int) override { return 0; }
};

std::vector<std::string> Vocabulary(const std::string& unit) {
    std::vector<std::string> names = {"vRTSize", "vRT2NORM_Scale", "vRT2NORM_Shift"};
    for (const char* name :
         {"vScale", "vShift", "vScaleTEXi", "vShiftTEXi", "vRT2TEX_Scale", "vRT2TEX_Shift",
          "vRT2TEXi_Scale", "vRT2TEXi_Shift", "vTEX2NORM_Scale", "vTEX2NORM_Shift",
          "vTEX2TEXi_Scale", "vTEX2TEXi_Shift", "vTEXi2NORM_Scale", "vTEXi2NORM_Shift",
          "vNORM2TEXi_Scale", "texelSize", "roiLeftTop", "roiWH"})
        names.push_back(unit + "." + name);
    return names;
}

TextureParams Region(int texWidth, int texHeight, int left, int top, int width, int height) {
    TextureParams texture;
    texture.nTexWidth = texWidth, texture.nTexHeight = texHeight;
    texture.nLeft = left, texture.nTop = top;
    texture.nWidth = width, texture.nHeight = height;
    return texture;
}

class Program : public ::testing::Test {
  protected:
    explicit Program(const std::string& unit = "Texture0") : shader(Vocabulary(unit)) {
        program.Init(&host, &context, &shader);
    }
    /// A value led through a conversion of the first texture, on the horizontal axis.
    float Lead(const std::string& scale, const std::string& shift, float v) {
        return shader.pairs.at(scale).x * v + (shift.empty() ? 0 : shader.pairs.at(shift).x);
    }

    FakeHostGL host;
    FakeContext context;
    FakeShader shader;
    GLShaderProgram program{true};
};

TEST_F(Program, LeadsPixelCentresToTexelCentresBetweenAnySpaces) {
    const struct {
        int target, texture, left, width;
    } cases[] = {{10, 10, 0, 10}, {7, 64, 5, 33}, {640, 100, 20, 80}, {2, 3, 1, 2}, {5, 9, 8, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.target << " pixels, " << c.width << " texels");
        program.Bind(c.target, c.target);
        program.SetTexInf(0, Region(c.texture, c.texture, c.left, c.left, c.width, c.width),
                          GPUStuff::kWhole);
        const auto R = static_cast<float>(c.target), w = static_cast<float>(c.width);
        const auto S = static_cast<float>(c.texture), left = static_cast<float>(c.left);
        for (const float texel : {0.0f, w - 1}) {
            const float rt = texel == 0 ? 0.5f / R : (R - 0.5f) / R;
            const float gl = (left + texel + 0.5f) / S;
            const float norm = Lead("vRT2NORM_Scale", "vRT2NORM_Shift", rt);
            EXPECT_NEAR(gl, Lead("Texture0.vScale", "Texture0.vShift", norm), 1e-5f);
            EXPECT_NEAR(gl, Lead("Texture0.roiWH", "Texture0.roiLeftTop", norm), 1e-5f);
            EXPECT_NEAR(gl, Lead("Texture0.vScaleTEXi", "Texture0.vShiftTEXi", texel), 1e-5f);
            EXPECT_NEAR(texel, Lead("Texture0.vRT2TEXi_Scale", "Texture0.vRT2TEXi_Shift", rt),
                        1e-4f);
            const float tex = Lead("Texture0.vRT2TEX_Scale", "Texture0.vRT2TEX_Shift", rt);
            EXPECT_NEAR((texel + 0.5f) / w, tex, 1e-5f);
            EXPECT_NEAR(texel, Lead("Texture0.vTEX2TEXi_Scale", "Texture0.vTEX2TEXi_Shift", tex),
                        1e-4f);
            if (c.width == 1) continue;  // the rest divides by the span of the centres
            EXPECT_NEAR(norm, Lead("Texture0.vTEX2NORM_Scale", "Texture0.vTEX2NORM_Shift", tex),
                        1e-5f);
            EXPECT_NEAR(norm, Lead("Texture0.vTEXi2NORM_Scale", "Texture0.vTEXi2NORM_Shift", texel),
                        1e-5f);
            EXPECT_NEAR(texel, Lead("Texture0.vNORM2TEXi_Scale", "", norm), 1e-4f);
            EXPECT_NEAR(1 / (w - 1), shader.pairs.at("Texture0.texelSize").x, 1e-6f);
        }
    }
}

TEST_F(Program, MeetsDegenerateAxesAsShadersExpect) {
    program.Bind(0, 1);
    EXPECT_EQ((Pair{1, 1}), shader.pairs.at("vRTSize"));
    EXPECT_EQ((Pair{0, 0}), shader.pairs.at("vRT2NORM_Scale"));
    EXPECT_EQ((Pair{0.5f, 0.5f}), shader.pairs.at("vRT2NORM_Shift"));

    program.SetTexInf(0, Region(256, 1, 0, 0, 256, 1), GPUStuff::kWhole);
    EXPECT_EQ((Pair{0, 0}), shader.pairs.at("Texture0.vRT2TEX_Scale"));
    EXPECT_EQ((Pair{0.5f, 0.5f}), shader.pairs.at("Texture0.vRT2TEX_Shift"));
    EXPECT_EQ(0, shader.pairs.at("Texture0.vTEXi2NORM_Scale").y);
    EXPECT_EQ(0.5f, shader.pairs.at("Texture0.vTEXi2NORM_Shift").y);

    // The first description since a Bind is the one that holds.
    program.SetTexInf(0, Region(2, 2, 0, 0, 2, 2), GPUStuff::kWhole);
    EXPECT_EQ(255.0f / 256.0f, shader.pairs.at("Texture0.vScale").x);
    program.Bind(4, 4);
    program.SetTexInf(0, Region(2, 2, 0, 0, 2, 2), GPUStuff::kWhole);
    EXPECT_EQ(0.5f, shader.pairs.at("Texture0.vScale").x);
}

TEST_F(Program, SendsOnlyWhatTheProgramHas) {
    EXPECT_FALSE(program.SetInt1("SwapChannels", 1));
    EXPECT_FALSE(program.SetFloat2("vRT", 1, 2));
    EXPECT_FALSE(program.CheckUniform(nullptr));
    EXPECT_EQ(0, shader.calls);

    FakeShader eighth(Vocabulary("Texture8"));
    program.Init(&host, &context, &eighth);
    program.Bind(4, 4);
    const int before = eighth.calls;
    program.SetTexInf(8, Region(2, 2, 0, 0, 2, 2), GPUStuff::kWhole);
    EXPECT_EQ(before, eighth.calls);

    program.Free();
    EXPECT_FALSE(program.Bind(4, 4));
    EXPECT_EQ(1u, host.references);

    GLShaderProgram untracked(false);
    untracked.Init(&host, &context, &shader);
    float rows[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_TRUE(untracked.SetMatf3("any", /*bTranspose=*/true, rows));
    EXPECT_EQ((std::vector<float>{1, 4, 7, 2, 5, 8, 3, 6, 9}), shader.matrix);
}

TEST(Blender, PutsBackWhatItFoundAndDisablesBlending) {
    FakeContext context;
    context.BlendEquationSeparate(GL_MIN, GL_MAX);
    context.BlendFuncSeparate(GL_ONE, GL_ZERO, GL_DST_COLOR, GL_SRC_ALPHA);
    const auto integers = context.integers;

    GLBlender blender;
    EXPECT_FALSE(blender.Enable(GLBlender::kAdd, GLBlender::kAdd));
    blender.Initialize(&context);
    blender.Enable(GLBlender::kSubtract, static_cast<GLBlender::BlendEquation>(4));
    EXPECT_EQ(GL_FUNC_SUBTRACT, context.integers[GL_BLEND_EQUATION_RGB]);
    EXPECT_EQ(0, context.integers[GL_BLEND_EQUATION_ALPHA]);
    blender.BlendFuncSeparate(GLBlender::kOneMinusConstantAlpha, GLBlender::kDstAlpha,
                              static_cast<GLBlender::BlendFactor>(14), GLBlender::kOne);
    EXPECT_EQ(GL_ONE_MINUS_CONSTANT_ALPHA, context.integers[GL_BLEND_SRC_RGB]);
    EXPECT_EQ(GL_ZERO, context.integers[GL_BLEND_SRC_ALPHA]);
    context.BlendColor(1, 1, 1, 1);

    blender.Terminate();
    EXPECT_EQ(integers, context.integers);
    EXPECT_EQ(0.3f, context.color[2]);
    EXPECT_FALSE(context.blend);
    EXPECT_FALSE(blender.HasContext());
}

TEST(RenderTarget, AsksForFewSamplesUntilTheHostGivesIn) {
    FakeContext context;
    FakeHostGL host;
    GPUHelper helper;
    helper.SetParams(&host, &context);
    const TextureParams texture = Region(4, 4, 0, 0, 4, 4);
    for (const auto& [most, asked] : {std::pair{32, 4}, {16, 4}, {8, 4}, {7, 7}, {0, 0}}) {
        context.integers[GL_MAX_SAMPLES_EXT] = most;
        EXPECT_TRUE(helper.SetRenderTarget(&texture, true, false, false));
        EXPECT_EQ(asked, host.samples);
    }
    host.refusals = 1;
    EXPECT_FALSE(helper.SetRenderTarget(&texture, true, false, false));
    context.integers[GL_MAX_SAMPLES_EXT] = 4;
    host.refusals = 3;
    EXPECT_TRUE(helper.SetRenderTarget(&texture, true, false, false));
    helper.SetParams(nullptr, nullptr);
}

}  // namespace
}  // namespace brushworks
