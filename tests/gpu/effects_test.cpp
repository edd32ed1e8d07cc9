// Effects on the graphics card against the same effects on the processor, and the laws of a render
// there.
#include <epoxy/gl.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <map>

#include "effects/testing.h"
#include "host/gl/lending_host.h"
#include "host/gl/testing_gl.h"

namespace brushworks {
namespace {

using host::gl::alike;
using host::gl::GLTest;
using host::gl::LendingHost;
using host::gl::Picture;
using host::gl::RefusingHostGL;
using host::gl::Tolerance;
using testing::EffectPointer;
using testing::TestHost;

constexpr unsigned int kCharcoal = 1, kPosterize = 10;

/// A case of comparison: an effect with its defaults or a preset, and some values of its own.
struct Case {
    const char* name;
    unsigned int effect;
    int preset = -1;
    std::map<unsigned int, EffectParam> values = {};
    Tolerance bytes = {};   ///< for the formats of bytes
    Tolerance floats = {};  ///< for those of floats
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

/// How a picture lies in its texture.
struct Placing {
    int left = 0, top = 0, right = 0, bottom = 0;  ///< texels around the region
};

class OnCard : public GLTest {
  protected:
    void Use(unsigned int index, int preset = -1,
             const std::map<unsigned int, EffectParam>& values = {}) {
        effect.reset(NewEffect(index));
        testing::UseDefaults(*effect, params);
        if (preset >= 0) testing::UsePreset(*effect, params, static_cast<unsigned int>(preset));
        for (const auto& [param, value] : values) params.values[param] = value;
    }

    /// The effect's face for the card; the reference stays the effect's.
    IVideoGPUEffect& Card() {
        void* face = nullptr;
        effect->QueryInterface(IID_VideoGPUEffect, &face);
        effect->Release();
        return *static_cast<IVideoGPUEffect*>(face);
    }

    bool RenderOnProcessor(Picture& source, Picture& destination, bool flipped = false) {
        FrameParams from = source.frame(), to = destination.frame();
        from.bFlipped = to.bFlipped = flipped;
        RenderInfo info{};
        return effect->Render(&params, &from, nullptr, &to, &info);
    }

    /// Renders from and to regions of larger textures, `maker` standing in front of the host.
    bool RenderOnCard(IVideoHostGL& maker, Picture& source, Picture& destination,
                      const Placing& place = {}, bool flippedSource = false,
                      bool flippedDestination = false) {
        auto from = Texture(source, place), to = Texture(destination, place);
        from.bFlipped = flippedSource;
        to.bFlipped = flippedDestination;
        RenderInfo info{};
        const auto host = LendingHost::create(maker, &params);
        const bool rendered =
            Card().RenderGPU(kRenderFinal, host.get(), &context(), &from, nullptr, &to, &info);
        if (rendered) renderer().download(to, destination.frame());
        hostGL().FreeTexture(&from, true);
        hostGL().FreeTexture(&to, true);
        return rendered;
    }
    bool RenderOnCard(Picture& source, Picture& destination, const Placing& place = {}) {
        return RenderOnCard(hostGL(), source, destination, place);
    }

    TextureParams Texture(Picture& picture, const Placing& place) {
        return *renderer().upload(picture.frame(), picture.width + place.left + place.right,
                                  picture.height + place.top + place.bottom, place.left, place.top);
    }

    TestHost params;
    EffectPointer effect;
};

class AgainstTheProcessor : public OnCard, public ::testing::WithParamInterface<Case> {};

TEST_P(AgainstTheProcessor, GivesTheSamePicture) {
    const Case& c = GetParam();
    Use(c.effect, c.preset, c.values);
    for (const PixelFormat format : testing::kColorFormats)
        for (const Placing place : {Placing{}, Placing{3, 5, 11, 2}}) {
            SCOPED_TRACE(::testing::Message()
                         << "format " << format << ", " << place.left << " texels to the left");
            Picture source = host::gl::testPicture(157, 121, format);
            Picture expected(157, 121, format), actual(157, 121, format);
            ASSERT_TRUE(RenderOnProcessor(source, expected));
            ASSERT_TRUE(RenderOnCard(source, actual, place));
            const bool bytes = format == PixelFormatBGRA8 || format == PixelFormatARGB8;
            EXPECT_TRUE(alike(actual.frame(), expected.frame(), bytes ? c.bytes : c.floats));
        }
}

EffectParam Index(int index) {
    return {.index = index};
}

// Posterize counts in the processor's own samples. What differs is that the work texture has bytes,
// also for pictures of floats: half a level.
constexpr Tolerance kExact = {};
constexpr Tolerance kHalfALevel = {.largest = 0.5, .psnr = 58};
constexpr Tolerance kSameBytes = {.largest = 0.001};

// Charcoal's smoothing has whole weights on the processor, drops small ones and darkens by up to
// two levels: edges differ by a few levels, which a steep contrast multiplies.
constexpr Tolerance kSmoothed = {.largest = 40, .psnr = 57};
constexpr Tolerance kSmoothedAndSteep = {.largest = 70, .psnr = 41};

INSTANTIATE_TEST_SUITE_P(
    All, AgainstTheProcessor,
    ::testing::Values(
        Case{.name = "Posterize", .effect = kPosterize, .bytes = kExact, .floats = kSameBytes},
        Case{.name = "PosterizeNine",
             .effect = kPosterize,
             .values = {{3, Index(7)}},
             .bytes = kExact,
             .floats = kHalfALevel},
        Case{.name = "PosterizeDots",
             .effect = kPosterize,
             .values = {{3, Index(2)}, {4, Index(4)}},
             .bytes = kExact,
             .floats = kSameBytes},
        Case{.name = "Charcoal", .effect = kCharcoal, .bytes = kSmoothed, .floats = kSmoothed},
        Case{.name = "CharcoalGreen",
             .effect = kCharcoal,
             .preset = 3,
             .bytes = kSmoothedAndSteep,
             .floats = kSmoothedAndSteep}),
    [](const auto& test) { return test.param.name; });

TEST_F(OnCard, CharcoalGivesTheSamePictureWhereThereIsNothingToSmooth) {
    // Flat blocks whose steps are far beyond the range of the smoothing.
    Picture source(192, 128, PixelFormatBGRA8);
    for (std::size_t i = 0; i < source.bytes.size(); ++i) {
        const std::size_t x = i / 4 % 192 / 24, y = i / 4 / 192 / 16;
        source.bytes[i] = static_cast<std::uint8_t>(i % 4 == 3 ? 255 : (x * 5 + y * 3) % 6 * 50);
    }
    Use(kCharcoal, 3, {{0, {.value = 1.0f}}});
    Picture expected(192, 128, PixelFormatBGRA8), actual(192, 128, PixelFormatBGRA8);
    ASSERT_TRUE(RenderOnProcessor(source, expected));
    ASSERT_TRUE(RenderOnCard(source, actual));
    // The processor's smoothing darkens by up to two levels, and this is the steepest contrast.
    EXPECT_TRUE(alike(actual.frame(), expected.frame(), {.largest = 30, .psnr = 43}));
}

/// What holds of every render on the card.
class OnCardLaws : public OnCard, public ::testing::WithParamInterface<unsigned int> {
  protected:
    OnCardLaws() { Use(GetParam()); }

    Picture source = host::gl::testPicture(61, 47, PixelFormatBGRA8);
};

TEST_P(OnCardLaws, ARefusalAnywhereRendersNothingAndLeavesNothing) {
    for (const PixelFormat format : {PixelFormatBGRA8, PixelFormatARGB32f}) {
        source = host::gl::testPicture(61, 47, format);
        Picture expected(61, 47, format), actual(61, 47, format);
        ASSERT_TRUE(RenderOnCard(source, expected));
        int request = 0;
        for (bool refused = true; refused; ++request) {
            SCOPED_TRACE(::testing::Message() << "request " << request << " refused");
            const std::uint64_t mark = hostGL().mark();
            const auto refusing = RefusingHostGL::create(hostGL(), request);
            const bool rendered = RenderOnCard(*refusing, source, actual);
            refused = refusing->refused();
            EXPECT_EQ(!refused, rendered);
            EXPECT_THAT(hostGL().aliveSince(mark), ::testing::IsEmpty());
        }
        EXPECT_GT(request, 5);
        EXPECT_TRUE(alike(actual.frame(), expected.frame(), {}));
    }
}

TEST_P(OnCardLaws, TurnsTheRowsWhereDirectionsDiffer) {
    Picture upright(61, 47, PixelFormatBGRA8), same(61, 47, PixelFormatBGRA8);
    Picture turned(61, 47, PixelFormatBGRA8), mirrored(61, 47, PixelFormatBGRA8);
    ASSERT_TRUE(RenderOnCard(hostGL(), source, upright));
    ASSERT_TRUE(RenderOnCard(hostGL(), source, same, {}, true, true));
    ASSERT_TRUE(RenderOnCard(hostGL(), source, turned, {}, true, false));
    const std::size_t span = 61 * 4;
    for (std::size_t y = 0; y < 47; ++y)
        std::copy_n(&upright.bytes[y * span], span, &mirrored.bytes[(46 - y) * span]);
    EXPECT_TRUE(alike(same.frame(), upright.frame(), {}));
    EXPECT_TRUE(alike(turned.frame(), mirrored.frame(), {}));
}

TEST_P(OnCardLaws, AnswersInTheOrderOfTheDestination) {
    Picture expected(61, 47, PixelFormatBGRA8), swapped(61, 47, PixelFormatARGB8);
    ASSERT_TRUE(RenderOnCard(source, expected));
    ASSERT_TRUE(RenderOnCard(source, swapped));
    for (std::size_t i = 0; i < swapped.bytes.size(); i += 4)
        std::reverse(&swapped.bytes[i], &swapped.bytes[i] + 4);
    swapped.format = PixelFormatBGRA8;
    EXPECT_TRUE(alike(swapped.frame(), expected.frame(), {}));
}

TEST_P(OnCardLaws, RendersAnySize) {
    for (const auto& [width, height] : {std::pair{1, 1}, {1, 30}, {30, 1}, {2, 3}, {300, 7}})
        for (const auto& [toWidth, toHeight] : {std::pair{width, height}, {1, 1}, {31, 17}}) {
            Picture from = host::gl::testPicture(width, height, PixelFormatARGB8);
            Picture to(toWidth, toHeight, PixelFormatARGB8);
            EXPECT_TRUE(RenderOnCard(from, to, {1, 2, 3, 4}));
        }
}

TEST_P(OnCardLaws, PutsTheHostsBlendStateBack) {
    static constexpr std::array kNames = {GL_BLEND_EQUATION_RGB, GL_BLEND_EQUATION_ALPHA,
                                          GL_BLEND_SRC_RGB,      GL_BLEND_SRC_ALPHA,
                                          GL_BLEND_DST_RGB,      GL_BLEND_DST_ALPHA};
    glEnable(GL_BLEND);
    glBlendColor(0.25f, 0.5f, 0.75f, 1.0f);
    glBlendEquationSeparate(GL_MAX, GL_MIN);
    glBlendFuncSeparate(GL_ONE, GL_DST_COLOR, GL_ZERO, GL_SRC_ALPHA);
    const auto state = [] {
        std::vector<float> values(4);
        glGetFloatv(GL_BLEND_COLOR, values.data());
        for (const auto name : kNames) {
            int value = 0;
            glGetIntegerv(static_cast<GLenum>(name), &value);
            values.push_back(static_cast<float>(value));
        }
        return values;
    };
    const std::vector<float> before = state();
    Picture to(61, 47, PixelFormatBGRA8);
    ASSERT_TRUE(RenderOnCard(source, to));
    EXPECT_EQ(before, state());
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    glBlendFuncSeparate(GL_ONE, GL_ZERO, GL_ONE, GL_ZERO);
    glBlendEquationSeparate(GL_FUNC_ADD, GL_FUNC_ADD);
    glBlendColor(0, 0, 0, 0);
}

TEST_P(OnCardLaws, CompilesNothingTwice) {
    Picture to(61, 47, PixelFormatBGRA8);
    ASSERT_TRUE(RenderOnCard(source, to));
    const auto compiled = hostGL().counters().programsCompiled;
    ASSERT_TRUE(RenderOnCard(source, to));
    EXPECT_EQ(compiled, hostGL().counters().programsCompiled);
}

INSTANTIATE_TEST_SUITE_P(All, OnCardLaws, ::testing::Values(kCharcoal, kPosterize),
                         [](const auto& test) {
                             return test.param == kPosterize ? "Posterize" : "Charcoal";
                         });

TEST_F(OnCard, ASmallerDestinationShowsTheWholePicture) {
    // Where processor and card differ on purpose: the one paints what the two have in common.
    Picture source = host::gl::testPicture(99, 51, PixelFormatBGRA8);
    Picture whole(99, 51, PixelFormatBGRA8), small(33, 17, PixelFormatBGRA8);
    Picture expected(33, 17, PixelFormatBGRA8);
    Use(kCharcoal);
    ASSERT_TRUE(RenderOnCard(source, whole));
    ASSERT_TRUE(RenderOnCard(source, small));
    for (std::size_t y = 0; y < 17; ++y)
        for (std::size_t x = 0; x < 33; ++x)
            std::copy_n(&whole.bytes[((3 * y + 1) * 99 + 3 * x + 1) * 4], 4,
                        &expected.bytes[(y * 33 + x) * 4]);
    EXPECT_TRUE(alike(small.frame(), expected.frame(), {}));
}

TEST_F(OnCard, PosterizePassesThroughASmallerDestination) {
    // Its colours go there at once and come back for their levels: corners meet corners both ways,
    // and the closing copy takes the texel under each pixel's centre.
    Picture source = host::gl::testPicture(97, 49, PixelFormatBGRA8);
    Picture whole(97, 49, PixelFormatBGRA8), small(33, 17, PixelFormatBGRA8);
    Picture expected(33, 17, PixelFormatBGRA8);
    Use(kPosterize);
    ASSERT_TRUE(RenderOnProcessor(source, whole));
    ASSERT_TRUE(RenderOnCard(source, small));
    const auto texelOf = [](std::size_t i, std::size_t size, std::size_t smaller) {
        const std::size_t copied = (2 * i + 1) * size / (2 * smaller);
        return (copied + 1) / 3 * 3;  // every third texel went into the destination
    };
    for (std::size_t y = 0; y < 17; ++y)
        for (std::size_t x = 0; x < 33; ++x)
            std::copy_n(&whole.bytes[(texelOf(y, 49, 17) * 97 + texelOf(x, 97, 33)) * 4], 4,
                        &expected.bytes[(y * 33 + x) * 4]);
    EXPECT_TRUE(alike(small.frame(), expected.frame(), {}));
}

TEST_F(OnCard, EveryOtherDitherOfPosterizeIsTheOrderedOne) {
    Picture source = host::gl::testPicture(61, 47, PixelFormatBGRA8);
    Picture ordered(61, 47, PixelFormatBGRA8), other(61, 47, PixelFormatBGRA8);
    Use(kPosterize, -1, {{4, Index(4)}});
    ASSERT_TRUE(RenderOnCard(source, ordered));
    Use(kPosterize, -1, {{4, Index(2)}});
    ASSERT_TRUE(RenderOnCard(source, other));
    EXPECT_TRUE(alike(other.frame(), ordered.frame(), {}));
}

TEST_F(OnCard, EveryEffectAnswersWhetherItRenders) {
    for (unsigned int index = 0; index < testing::kEffects; ++index) {
        Use(index);
        GPUCaps caps = {-1, -1, false};
        const auto host = LendingHost::create(hostGL(), &params);
        ASSERT_TRUE(Card().GetGPUCaps(host.get(), &context(), &caps, 0)) << index;
        EXPECT_EQ(0, caps.nReserved);
        EXPECT_EQ(index == kCharcoal || index == kPosterize ? 1 : 0, caps.nGPUSupported) << index;
        EXPECT_TRUE(caps.bGPUAllowed);
    }
}

TEST_F(OnCard, WithoutACurrentContextTheAnswerIsNo) {
    Use(kPosterize);
    renderer().release();
    GPUCaps caps{};
    const auto host = LendingHost::create(hostGL(), &params);
    EXPECT_TRUE(Card().GetGPUCaps(host.get(), &context(), &caps, 0));
    EXPECT_EQ(0, caps.nGPUSupported);
    TextureParams none;
    none.nWidth = none.nHeight = none.nTexWidth = none.nTexHeight = 4;
    RenderInfo info{};
    EXPECT_FALSE(
        Card().RenderGPU(kRenderFinal, host.get(), &context(), &none, nullptr, &none, &info));
    ASSERT_TRUE(renderer().makeCurrent());
    renderer().takeProblems();
}

}  // namespace
}  // namespace brushworks
