// Memory that runs out at any request: nothing is thrown, the answer is null or false, and all that
// was taken goes back.
#include <gtest/gtest.h>
#include <unistd.h>

#include <climits>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>

#include "brushworks/library.h"
#include "effects/testing.h"
#include "frames/lf_string.h"
#include "library/panels.h"
#include "refusal.h"

// The address sanitizer's, where it is there.
extern "C" [[gnu::weak]] void __lsan_disable();  // NOLINT: its name
extern "C" [[gnu::weak]] void __lsan_enable();   // NOLINT: likewise

namespace brushworks {
namespace {

namespace fs = std::filesystem;
using testing::LiveBlocks;
using testing::Refusal;

/// What is asked of a piece of work whose memory is refused.
struct Law {
    bool needsAll = true;  ///< it needs all that it asks for
    bool givesAllBack = true;
};

/// Does `work`, which says whether it came to its end, with its first request refused, then its
/// second, and so on until it needs no more; each time that one alone, and each time all that
/// follow too. Returns how many requests there are.
template <class Work>
long RefuseEach(Work work, Law law = {}) {
    EXPECT_TRUE(work());  // what is kept for good is made now
    long requests = 0;
    for (const bool alone : {true, false})
        for (long k = 1;; ++k) {
            SCOPED_TRACE(::testing::Message() << "request " << k << (alone ? " alone" : " and on"));
            const long before = LiveBlocks();
            bool done = false, thrown = false, met = false;
            {
                const Refusal refusal(k, alone ? k : LONG_MAX);
                try {
                    done = work();
                } catch (...) {
                    thrown = true;
                }
                met = refusal.WasMet();
            }
            const long left = LiveBlocks() - before;
            EXPECT_TRUE(left == 0 || !law.givesAllBack) << left << " blocks";
            EXPECT_FALSE(thrown);
            EXPECT_TRUE(done ? !met || !law.needsAll : met);
            EXPECT_TRUE(CanUnloadDLLNow());
            if (!met || ::testing::Test::HasFailure()) break;
            requests = k;
        }
    return requests;
}

Reference<IEffectLibrary> Library() {
    return Reference<IEffectLibrary>(GetEffectsLibrary());
}

TEST(RefusedMemory, TheLibraryAndWhatItHandsOut) {
    EXPECT_GE(RefuseEach([] { return Library() != nullptr; }), 1L + testing::kEffects);
    const auto handsOut = [](auto ask) {
        const long requests = RefuseEach([&] {
            const auto library = Library();
            return library && Reference<IUnknown>(ask(*library));
        });
        EXPECT_GE(requests, 1);
    };
    for (unsigned int index = 0; index < testing::kEffects; ++index)
        handsOut([=](IEffectLibrary& library) { return library.CreateEffect(index); });
    handsOut([](IEffectLibrary& library) { return library.GetFrameProcessor(); });
    handsOut([](IEffectLibrary& library) { return library.GetPresetSaver(); });
}

TEST(RefusedMemory, ARenderOfEachEffect) {
    long requests = 0;
    for (unsigned int index = 0; index < testing::kEffects; ++index)
        for (const PixelFormat format : {PixelFormatARGB8, PixelFormatBGRA32f}) {
            const testing::EffectPointer effect(NewEffect(index));
            SCOPED_TRACE(effect->GetName());
            testing::TestHost host;
            testing::UseDefaults(*effect, host);
            testing::RandomFrame src(24, 18, format, 1), dst(24, 18, format, 2);
            // A step may do without its scratch: the picture then lacks it.
            requests += RefuseEach([&] { return testing::Render(*effect, host, src, dst); },
                                   {.needsAll = false});
        }
    EXPECT_GT(requests, 0);
}

TEST(RefusedMemory, TheFrameService) {
    testing::RandomFrame bytes(8, 6, PixelFormatBGRA8, 1), floats(8, 6, PixelFormatARGB32f, 2);
    testing::RandomFrame result(5, 7, PixelFormatBGRA8, 3), packed(8, 3, PixelFormatBGRA8, 4);
    FrameParams b = bytes.GetFrameParams(), f = floats.GetFrameParams();
    FrameParams to = result.GetFrameParams(), yuy2 = packed.GetFrameParams();
    RefuseEach([&] {
        const auto library = Library();
        const Reference<IFrameProcessor> frames(library ? library->GetFrameProcessor() : nullptr);
        unsigned int order[4] = {3, 2, 1, 0};
        tagRECT rect = {0, 0, 3, 3};
        const float bounds[4] = {};
        return frames && frames->Copy(&b, &to) && frames->Resize(&b, &to, 2) &&
               frames->ReverseChannels(&b, &to) && frames->RGBAToYUY2(&b, &yuy2, nullptr) &&
               frames->YUY2ToRGBA(&yuy2, &b, 9, nullptr) && frames->SetChannelValue(&b, 1, 9) &&
               frames->AlphaBlend(&b, &b, &to, false) && frames->SwapChannels(&b, order) &&
               frames->AlphaPremul(&b) && frames->AppleR4FLToARGB32(&f, &f) &&
               frames->ARGB32ToAppleR4FL(&f, &f) && frames->FlipFrame(&b, &to) &&
               frames->FlipFrame(&b) && frames->CopyChannel(&b, &to, 0, 1) &&
               frames->InvertChannel(&b, 1) && frames->SqrInPlace(&f) && frames->SqrtInPlace(&f) &&
               frames->ThresholdLTInPlace(&f, bounds) && frames->ResizeCrop(&b, &rect, &to, 2);
    });
}

/// TinyXML loses the node that it reads when memory runs out in the middle of it. The sanitizer is
/// to look for no leaks while this lives.
struct NoLeaksSought {
    NoLeaksSought() {
        if (__lsan_disable) __lsan_disable();
    }
    ~NoLeaksSought() {
        if (__lsan_enable) __lsan_enable();
    }
};

/// The panels of a user who always takes the same file.
struct OneFile final : IPanels {
    explicit OneFile(std::string file) : path(std::move(file)) { SetPanels(this); }
    ~OneFile() override { SetPanels(nullptr); }
    std::optional<std::string> ChooseToSave(OpaqueWindowPtr*, const FileRequest&) override {
        return path;
    }
    std::optional<std::string> ChooseToOpen(OpaqueWindowPtr*, const FileRequest&) override {
        return path;
    }
    void Alert(OpaqueWindowPtr*, const AlertTexts&) override {}

    const std::string path;
};

TEST(RefusedMemory, ThePresetService) {
    char folder[] = "/tmp/brushworks-memory-XXXXXX";
    ASSERT_NE(mkdtemp(folder), nullptr);
    const OneFile panels(std::string(folder) + "/a preset with a longer name.fxpbwkf");
    constexpr unsigned int kMosaic = 5;
    CEffectPreset preset = {}, back = {};
    std::strcpy(preset.szName, "A name that a string has no room for in itself");
    const testing::EffectPointer mosaic(NewEffect(kMosaic));
    for (EffectParamSetup setup = {};
         mosaic->EnumParam(static_cast<unsigned int>(preset.nParamCount), &setup);)
        preset.params[preset.nParamCount++].nType = setup.nType;
    const NoLeaksSought parserLosesNodes;
    const auto serves = [](auto use) {
        return RefuseEach(
            [&] {
                const auto library = Library();
                const Reference<IPresetSaver> saver(library ? library->GetPresetSaver() : nullptr);
                return saver && use(*library, *saver) == 0;
            },
            {.givesAllBack = false});
    };
    EXPECT_GE(serves([&](IEffectLibrary& library, IPresetSaver& saver) {
                  return saver.Save(nullptr, &library, kMosaic, &preset, nullptr);
              }),
              20);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
    EXPECT_GE(serves([&](IEffectLibrary& library, IPresetSaver& saver) {
                  return saver.Load(nullptr, &library, kMosaic, &back, nullptr);
              }),
              20);
    EXPECT_STREQ(back.szName, preset.szName);
    fs::remove_all(folder);
}

TEST(RefusedMemory, AStringIsRightOrEmpty) {
    const LFString brush = LFString::FromText("Brush"), sh = LFString::FromText("sh");
    const std::string text = "text";
    const std::function<LFString()> makers[] = {
        [&] { return LFString(brush); },
        [&] { return brush + sh; },
        [&] {
            LFString copy(brush);
            return copy.IsSet() ? copy.Append(sh) : copy;
        },
        [&] {
            LFString copy(brush);
            return copy.IsSet() ? copy.Replace(sh, brush) : copy;
        },
        [&] { return brush.Substr(1, 3); },
        [&] { return brush.ToUpper(); },
        [] { return LFString(L"\u00e9\U0001F3A8", 2); },
        [] { return LFString::FromInt(-5); },
        [] { return LFString::FromGUID(IID_EffectLibrary); },
        [&] { return LFString::FromCFString(&text); },
    };
    for (const auto& make : makers) {
        const LFString right = make();
        bool wrong = false;
        EXPECT_GE(RefuseEach([&] {
                      const LFString made = make();
                      wrong |= made.IsSet() && !(made == right);
                      return made.IsSet();
                  }),
                  1);
        EXPECT_FALSE(wrong);
    }
}

}  // namespace
}  // namespace brushworks
