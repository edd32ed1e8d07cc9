// What must hold of every effect's render on the processor, whatever it paints.
#include <cmath>
#include <thread>

#include "effects/testing.h"
#include "processors/channel_reverse.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

/// A picture with slopes, an edge and grain: unlike noise it gives every step something to find.
void Draw(CFrame& frame, unsigned seed) {
    Randomize(frame, seed);
    const float white = Processors::IsFloatColor(frame) ? 1.0f : 255.0f;
    for (int y = 0; y < frame.m_nHeight; ++y)
        for (int i = 0; i < 4 * frame.m_nWidth; ++i) {
            const int x = i / 4;
            const float slope = static_cast<float>((5 * x + 3 * y + 40 * (i % 4)) % 256) / 255.0f;
            const float value =
                0.8f * (2 * x > y ? slope : 1.0f - slope) * white + 0.2f * SampleAt(frame, y, i);
            if (Processors::IsFloatColor(frame))
                Processors::RowOf<float>(frame, y)[i] = value;
            else
                Processors::RowOf<unsigned char>(frame, y)[i] = static_cast<unsigned char>(value);
        }
}

struct Picture : RandomFrame {
    Picture(int width, int height, PixelFormat format, unsigned seed)
        : RandomFrame(width, height, format, seed) {
        Draw(*this, seed);
    }
};

RenderInfo Field() {
    RenderInfo info{};
    info.dwFlags = kRenderHasFieldMode;
    info.nFieldMode = 1;
    return info;
}

RenderInfo WithAspect(double aspect) {
    RenderInfo info{};
    info.dwFlags = kRenderHasFieldMode | kRenderHasPixelAspect;
    info.nFieldMode = 3;
    info.dPixelAspect = aspect;
    return info;
}

class EveryEffect : public ::testing::TestWithParam<unsigned int> {
  protected:
    EveryEffect() { UseDefaults(*effect, host); }

    unsigned int PresetCount() const {
        unsigned int count = 0;
        while (effect->EnumPreset(count)) ++count;
        return count;
    }

    TestHost host;
    EffectPointer effect{NewEffect(GetParam())};
};

TEST_P(EveryEffect, RendersEverySizeAndKeepsAlpha) {
    RenderInfo infos[] = {Field(), WithAspect(2.0), WithAspect(0.4), WithAspect(0.0)};
    constexpr IppiSize kSizes[] = {{1, 1}, {1, 9}, {9, 1}, {2, 3}, {13, 7}, {40, 30}};
    for (unsigned int preset = 0; preset < PresetCount(); ++preset) {
        UsePreset(*effect, host, preset);
        for (const PixelFormat format : kColorFormats)
            for (const IppiSize size : kSizes)
                for (std::size_t i = 0; i <= std::size(infos); ++i) {
                    SCOPED_TRACE(::testing::Message()
                                 << effect->EnumPreset(preset) << ", format " << format << ", "
                                 << size.width << " x " << size.height << ", info " << i);
                    Picture src(size.width, size.height, format, 1);
                    RandomFrame dst(size.width, size.height, format, 2);
                    ASSERT_TRUE(Render(*effect, host, src, dst, i ? &infos[i - 1] : nullptr));
                    for (int y = 0; y < size.height; ++y)
                        for (int x = 0; x < size.width; ++x) {
                            const int alpha = 4 * x + Processors::AlphaPlane(src);
                            ASSERT_EQ(SampleAt(dst, y, alpha), SampleAt(src, y, alpha));
                        }
                }
    }
}

TEST_P(EveryEffect, TheOrderOfChannelsMakesNoDifference) {
    for (const auto& [alphaLast, alphaFirst] : {std::pair{PixelFormatBGRA8, PixelFormatARGB8},
                                                {PixelFormatBGRA32f, PixelFormatARGB32f}}) {
        Picture src(70, 51, alphaLast, 3);
        // One effect leaves this alpha in a source of this layout, and of no other.
        if (alphaLast == PixelFormatBGRA8) Processors::Samples<unsigned char>(src)[3] = 127;
        RandomFrame dst(70, 51, alphaLast, 4), reversed(70, 51, alphaFirst, 5),
            result(70, 51, alphaFirst, 6);
        Processors::CChannelReverse().Process(&src, &reversed);
        ASSERT_TRUE(Render(*effect, host, src, dst));
        ASSERT_TRUE(Render(*effect, host, reversed, result));
        Processors::CChannelReverse().Process(&result, &reversed);
        reversed.m_pfPixelFormat = alphaLast;
        EXPECT_TRUE(SamePixels(dst, reversed));
    }
}

TEST_P(EveryEffect, WorksOnTheOverlapAlone) {
    for (const PixelFormat format : kColorFormats) {
        SCOPED_TRACE(format);
        Picture large(60, 40, format, 7);
        RandomFrame dst(32, 45, format, 8), before(32, 45, format, 8), exact(32, 40, format, 9);
        CFrame cut, top, below, untouched;
        cut.Init(&large, 0, 0, 32, 40, false);
        ASSERT_TRUE(Render(*effect, host, large, dst));
        ASSERT_TRUE(Render(*effect, host, cut, exact));
        top.Init(&dst, 0, 0, 32, 40, false);
        EXPECT_TRUE(SamePixels(top, exact));
        below.Init(&dst, 0, 40, 32, 5, false);
        untouched.Init(&before, 0, 40, 32, 5, false);
        EXPECT_TRUE(SamePixels(below, untouched));
    }
}

TEST_P(EveryEffect, ANegativeStrideIsTheSameMemory) {
    for (const PixelFormat format : kColorFormats) {
        Picture src(31, 22, format, 1);
        RandomFrame dst(31, 22, format, 2), expected(31, 22, format, 3);
        ASSERT_TRUE(Render(*effect, host, src, expected));
        FrameParams from = src.GetFrameParams(), to = dst.GetFrameParams();
        for (FrameParams* params : {&from, &to}) {
            params->pBuffer += 21 * params->nByteSpan;
            params->nByteSpan = -params->nByteSpan;
        }
        ASSERT_TRUE(effect->Render(&host, &from, nullptr, &to, nullptr));
        EXPECT_TRUE(SamePixels(dst, expected));
    }
}

TEST_P(EveryEffect, KeepsNothingBetweenFramesNorSharesItBetweenThreads) {
    constexpr int kWidth = 80, kHeight = 60;
    Picture first(kWidth, kHeight, PixelFormatBGRA8, 1), second(50, 20, PixelFormatARGB32f, 2);
    RandomFrame expected(kWidth, kHeight, PixelFormatBGRA8, 3),
        other(50, 20, PixelFormatARGB32f, 4);
    ASSERT_TRUE(Render(*effect, host, first, expected));
    RenderInfo field = Field();
    ASSERT_TRUE(Render(*effect, host, second, other, &field));

    auto renderAgain = [&](IVideoEffect& with) {
        TestHost own;
        UseDefaults(with, own);
        Picture src(kWidth, kHeight, PixelFormatBGRA8, 1);
        RandomFrame dst(kWidth, kHeight, PixelFormatBGRA8, 5);
        for (int i = 0; i < 3; ++i) {
            EXPECT_TRUE(Render(with, own, src, dst));
            EXPECT_TRUE(SamePixels(dst, expected));
        }
    };
    const EffectPointer another(NewEffect(GetParam()));
    std::thread beside([&] { renderAgain(*another); });
    renderAgain(*effect);
    beside.join();
}

TEST_P(EveryEffect, RefusesWhatNoRenderCanMakeAnythingOf) {
    RandomFrame src(9, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2),
        before(9, 6, PixelFormatBGRA8, 2);
    const FrameParams good = src.GetFrameParams();
    auto refused = [&](auto spoil) {
        FrameParams from = good, to = dst.GetFrameParams();
        spoil(from, to);
        return !effect->Render(&host, &from, nullptr, &to, nullptr) && SamePixels(dst, before);
    };
    EXPECT_TRUE(refused([](FrameParams& from, FrameParams&) { from.pBuffer = nullptr; }));
    EXPECT_TRUE(refused([](FrameParams& from, FrameParams&) { from.nWidth = 0; }));
    EXPECT_TRUE(refused([](FrameParams&, FrameParams& to) { to.nHeight = -3; }));
    EXPECT_TRUE(refused([](FrameParams& from, FrameParams&) { from.nByteSpan = 35; }));
    EXPECT_TRUE(refused([](FrameParams&, FrameParams& to) { to.nByteSpan = 37; }));
    EXPECT_TRUE(refused([](FrameParams& from, FrameParams&) { from.nByteSpan = INT32_MIN; }));
    EXPECT_TRUE(refused([](FrameParams& from, FrameParams&) { from.nDepth = 1; }));
    EXPECT_TRUE(refused([](FrameParams&, FrameParams& to) { to.nDepth = 16; }));
    EXPECT_TRUE(
        refused([](FrameParams& from, FrameParams&) { from.pfPixelFormat = PixelFormatBGRA32f; }));
    FrameParams from = good, to = dst.GetFrameParams();
    EXPECT_FALSE(effect->Render(nullptr, &from, nullptr, &to, nullptr));
    EXPECT_FALSE(effect->Render(&host, nullptr, nullptr, &to, nullptr));
    EXPECT_FALSE(effect->Render(&host, &from, nullptr, nullptr, nullptr));
}

TEST_P(EveryEffect, APlaneOfBytesGoesWithAnyDestination) {
    RandomFrame plane(9, 6, PixelFormatMono8, 1);
    for (const PixelFormat format : kColorFormats) {
        RandomFrame dst(9, 8, format, 2), before(9, 8, format, 2);
        Render(*effect, host, plane, dst);  // true or false, as the effect has steps for it
        CFrame below, untouched;
        below.Init(&dst, 0, 6, 9, 2, false);
        untouched.Init(&before, 0, 6, 9, 2, false);
        EXPECT_TRUE(SamePixels(below, untouched));
    }
}

TEST_P(EveryEffect, AsksForEachValueOnce) {
    RandomFrame src(9, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2);
    ASSERT_TRUE(Render(*effect, host, src, dst));
    std::vector<unsigned int> asked = host.asked;
    std::sort(asked.begin(), asked.end());
    EXPECT_EQ(std::adjacent_find(asked.begin(), asked.end()), asked.end());
}

TEST_P(EveryEffect, WildValuesAreHarmless) {
    Picture src(19, 16, PixelFormatBGRA8, 1), floats(19, 16, PixelFormatARGB32f, 3);
    RandomFrame dst(19, 16, PixelFormatBGRA8, 2), result(19, 16, PixelFormatARGB32f, 4);
    Processors::Samples<float>(floats)[5] = NAN;
    Processors::Samples<float>(floats)[6] = -INFINITY;
    Processors::Samples<float>(floats)[7] = 1e30f;
    EffectParamSetup setup{};
    auto setAll = [&](float slider, int option) {
        for (unsigned int i = 0; effect->EnumParam(i, &setup); ++i) {
            host.values[i].word = ~std::uint64_t{0};
            if (setup.nType == kParamFloat) host.values[i].value = slider;
            if (setup.nType == kParamList) host.values[i].index = option;
        }
    };
    RenderInfo field = Field();
    for (const float wild : {-1e30f, 1e30f, NAN, INFINITY})
        for (const int option : {0, -1, INT32_MAX}) {
            setAll(wild, option);
            const bool bytes = Render(*effect, host, src, dst);
            const bool floating = Render(*effect, host, floats, result, &field);
            // An option that does not exist may be refused; the rest is brought to what exists.
            if (option == 0) {
                EXPECT_TRUE(bytes && floating);
            }
        }
}

TEST_P(EveryEffect, MemoryGoesBackWhateverIsRefused) {
    CountingAllocator lender;
    TestHost lending(&lender);
    UseDefaults(*effect, lending);
    for (const PixelFormat format : kColorFormats) {
        Picture src(48, 40, format, 1);
        RandomFrame dst(48, 40, format, 2), plain(48, 40, format, 3);
        lender.lent = lender.asked = 0;
        lender.refuseAfter = INT32_MAX;
        ASSERT_TRUE(Render(*effect, lending, src, dst));
        ASSERT_TRUE(Render(*effect, host, src, plain));
        EXPECT_TRUE(SamePixels(dst, plain));
        EXPECT_EQ(lender.out, 0);
        const auto renderWithout = [&](int only, int after) {
            lender.lent = lender.asked = 0;
            lender.refuseOnly = only;
            lender.refuseAfter = after;
            // True or false: steps may do without. Alpha comes back where it is true.
            if (Render(*effect, lending, src, dst)) {
                for (int i = Processors::AlphaPlane(src); i < 4 * 48; i += 4)
                    ASSERT_EQ(SampleAt(dst, 7, i), SampleAt(src, 7, i));
            }
            EXPECT_EQ(lender.out, 0);
        };
        for (int request = lender.asked - 1; request >= 0; --request) {
            renderWithout(request, INT32_MAX);
            renderWithout(-1, request);
        }
        lender.refuseOnly = -1;
    }
    EXPECT_EQ(lender.references, 1);
}

std::string NameOf(const ::testing::TestParamInfo<unsigned int>& info) {
    std::string name = EffectPointer(NewEffect(info.param))->GetName();
    name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
    return name;
}

INSTANTIATE_TEST_SUITE_P(Effects, EveryEffect, ::testing::Range(0u, kEffects), NameOf);

}  // namespace
}  // namespace brushworks
