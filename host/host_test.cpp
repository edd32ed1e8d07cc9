// The host layer with the real library: effects by name, values, presets, renders, memory.
#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <optional>
#include <set>
#include <thread>

#include "brushworks/memory.h"
#include "host/error.h"
#include "host/frame_params.h"
#include "host/library.h"
#include "host/testing_message.h"
#include "host/value_text.h"

namespace brushworks::host {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

TEST(Library, SaysWhatItCouldNotLoadAndWhere) {
    EXPECT_THAT(messageOf([] { Library::load("/nowhere/lib.so"); }), HasSubstr("/nowhere/lib.so"));
    EXPECT_THAT(messageOf([] { Library::load("libm.so.6"); }),
                HasSubstr("libm.so.6 is not an effect library"));
    setenv("BRUSHWORKS_LIBRARY", "/elsewhere/lib.so", 1);
    EXPECT_THAT(messageOf([] { Library::load(); }),
                AllOf(HasSubstr("/elsewhere/lib.so"), HasSubstr("from BRUSHWORKS_LIBRARY")));
    unsetenv("BRUSHWORKS_LIBRARY");
}

TEST(Library, ListsTheEffectsAndOpensThemByEveryName) {
    const Library library = Library::load();
    for (const EffectEntry& entry : library.effects()) {
        for (const std::string& name : {entry.id, entry.name, std::to_string(entry.index)}) {
            EXPECT_EQ(library.open(name).info().index, entry.index) << name;
        }
    }
    EXPECT_EQ(library.open("tOOnery pLUS").info().id, "cartoon");
    EXPECT_EQ(library.open("halo").info().name, "Aurascope Plus");
    EXPECT_EQ(library.open("WATER-color").info().name, "Water Color");
    EXPECT_THAT(messageOf([&] { library.open("postrize"); }),
                AllOf(HasSubstr("usage: "), HasSubstr("did you mean \"posterize\"")));
    EXPECT_THAT(messageOf([&] { library.open("12"); }), HasSubstr("the last is 11"));
    EXPECT_THAT(messageOf([&] { library.open("-1"); }), HasSubstr("no effect \"-1\""));
}

TEST(Library, StaysLoadedWhileAnEffectLives) {
    std::optional<Effect> effect;
    { effect = Library::load().open("posterize").clone(); }
    EXPECT_EQ(effect->text("levels"), "2");
    EXPECT_STREQ(effect->object()->GetName(), "Posterize");
}

TEST(Effect, EveryDefaultAndPresetValueSurvivesBeingPrintedAndTyped) {
    const Library library = Library::load();
    for (const EffectEntry& entry : library.effects()) {
        Effect effect = library.open(entry.index);
        const EffectInfo& info = effect.info();
        std::vector<Preset> rows = info.presets;
        rows.push_back({"defaults", effect.host()->values()});
        std::set<std::string> addresses;
        for (const ParameterInfo& parameter : info.parameters) {
            if (!parameter.hasValue()) continue;
            EXPECT_TRUE(addresses.insert(parameter.address).second) << parameter.address;
            for (const Preset& row : rows) {
                const EffectParam value = row.values[parameter.index];
                // A few presets go a hair past the end of a slider.
                if (parameter.type == kParamFloat && value.value > 1) continue;
                const std::string text = printValue(parameter, value);
                effect.set(parameter.address, text);
                EXPECT_EQ(effect.text(parameter.address), text)
                    << entry.id << ", " << row.name << ", " << parameter.address;
            }
        }
    }
}

TEST(Effect, TellsEqualNamesApartAndLeavesGroupMarkersOut) {
    const Library library = Library::load();
    Effect collage = library.open("paper-collage");
    collage.set("shadow", "#102030");
    collage.set("SHADOW#2", "25");
    EXPECT_EQ(collage.text("Shadow#1"), "#102030");
    EXPECT_EQ(collage.text("Shadow#2"), "25");
    EXPECT_THAT(messageOf([&] { collage.set("Shadow#3", "1"); }), HasSubstr("Shadow, Shadow#2"));

    const Effect cartoon = library.open("cartoon");
    const auto& parameters = cartoon.info().parameters;
    EXPECT_EQ(std::count_if(parameters.begin(), parameters.end(),
                            [](const ParameterInfo& info) { return !info.hasValue(); }),
              4);
    EXPECT_EQ(parameters[1].group, "Lines");
    EXPECT_EQ(parameters[7].group, "Paint");
    EXPECT_THAT(messageOf([&] { cartoon.text("Lines"); }), HasSubstr("no parameter \"Lines\""));
}

TEST(Effect, ClonesHaveTheirOwnValues) {
    Effect first = Library::load().open("posterize");
    first.applyPreset("offset PRINTING");
    Effect second = first.clone();
    EXPECT_EQ(second.text("Dither"), "Option D");
    second.set("Dither", "none");
    EXPECT_EQ(first.text("Dither"), "Option D");
    EXPECT_THAT(messageOf([&] { first.applyPreset("Dot"); }),
                AllOf(HasSubstr("no preset \"Dot\""), HasSubstr("did you mean \"Dots\"")));
}

/// Lends memory until it is told to refuse, and knows what is out.
class CountingAllocator final : public IMemoryAllocator {
  public:
    std::uint32_t QueryInterface(const _GUID& iid, void** face) override {
        *face = nullptr;
        if (!(iid == IID_MemoryAllocator)) return kNoInterface;
        AddRef();
        *face = static_cast<IMemoryAllocator*>(this);
        return kInterfaceFound;
    }
    std::uint32_t AddRef() override { return ++references; }
    std::uint32_t Release() override { return --references; }
    void Allocate(void** block, unsigned long size) override { *block = lend(size); }
    void Free(void* block) override { takeBack(block); }
    void AllocatePicture(std::uint8_t** buffer, int width, int height, int depth,
                         int* byteSpan) override {
        *byteSpan = (width * depth + 63) / 64 * 64;
        *buffer = static_cast<std::uint8_t*>(lend(std::size_t(*byteSpan) * std::size_t(height)));
    }
    void FreePicture(std::uint8_t* buffer) override { takeBack(buffer); }

    std::atomic<std::uint32_t> references = 1;
    std::atomic<int> lent = 0;
    std::atomic<int> out = 0;
    std::atomic<int> strangers = 0;  ///< given back without having been lent
    int refuseFrom = 1 << 30;

  private:
    void* lend(std::size_t bytes) {
        if (lent >= refuseFrom) return nullptr;
        ++lent;
        ++out;
        void* block = std::aligned_alloc(64, (bytes + 63) / 64 * 64);
        const std::lock_guard lock(m_mutex);
        m_blocks.insert(block);
        return block;
    }
    void takeBack(void* block) {
        {
            const std::lock_guard lock(m_mutex);
            if (m_blocks.erase(block) == 0) {
                ++strangers;
                return;
            }
        }
        --out;
        std::free(block);
    }

    std::mutex m_mutex;
    std::set<void*> m_blocks;
};

/// A picture of its own colours everywhere.
struct Picture {
    Picture(int w, int h) : width(w), height(h), pixels(std::size_t(w) * std::size_t(h) * 4) {
        std::uint32_t state = 1;
        for (std::uint8_t& sample : pixels) {
            state = state * 1664525 + 1013904223;
            sample = static_cast<std::uint8_t>(state >> 24);
        }
    }
    FrameParams record() {
        return frameParams(pixels.data(), width, height, width * 4, PixelFormatBGRA8);
    }
    int width;
    int height;
    std::vector<std::uint8_t> pixels;
};

constexpr RenderInfo kWholeFrame = {kRenderHasFieldMode, 0, 0, kFieldModeFrame};

TEST(Effect, GivesBackAllMemoryThatItTakes) {
    CountingAllocator allocator;
    {
        HostOptions options;
        options.services.push_back(Ref<IUnknown>::share(&allocator));
        Effect effect = Library::load("", options).open("posterize");
        Picture source(61, 47);
        Picture destination(61, 47);
        EXPECT_TRUE(effect.render(source.record(), destination.record(), kWholeFrame));
        EXPECT_GT(allocator.lent, 0);
        EXPECT_EQ(allocator.out, 0);

        const int needed = allocator.lent;
        for (int granted = 0; granted < needed; ++granted) {
            allocator.lent = 0;
            allocator.refuseFrom = granted;
            EXPECT_FALSE(effect.render(source.record(), destination.record(), kWholeFrame));
            EXPECT_EQ(allocator.out, 0) << "refused after " << granted;
        }
    }
    EXPECT_EQ(allocator.strangers, 0);
    EXPECT_EQ(allocator.references, 1U);
}

TEST(Effect, RendersTheSameBytesOnManyThreads) {
    Effect effect = Library::load().open("posterize");
    effect.applyPreset("Washed Out");
    Picture source(97, 61);
    Picture expected(97, 61);
    ASSERT_TRUE(effect.render(source.record(), expected.record(), kWholeFrame));
    EXPECT_NE(expected.pixels, source.pixels);

    std::vector<Picture> results(4, Picture(97, 61));
    {
        std::vector<std::jthread> threads;
        threads.reserve(results.size());
        for (Picture& result : results) {
            threads.emplace_back([&, own = effect.clone()]() mutable {
                for (int i = 0; i < 5; ++i) {
                    std::memset(result.pixels.data(), 0, result.pixels.size());
                    own.render(source.record(), result.record(), kWholeFrame);
                }
            });
        }
    }
    for (const Picture& result : results) EXPECT_EQ(result.pixels, expected.pixels);
}

TEST(FrameParams, FieldsShareTheRowsOfAFrame) {
    Picture picture(3, 5);
    const FrameParams frame = picture.record();
    const FrameParams top = fieldOf(frame, 0);
    const FrameParams bottom = fieldOf(frame, 1);
    EXPECT_EQ(top.nHeight, 3);
    EXPECT_EQ(bottom.nHeight, 2);
    EXPECT_EQ(bottom.pBuffer, picture.pixels.data() + 12);
    EXPECT_EQ(top.pBuffer + 2 * top.nByteSpan, picture.pixels.data() + 4 * 12);
}

TEST(Library, ServesOtherLibrariesOfTheSameContract) {
    Effect effect = Library::load(BRUSHWORKS_TESTING_LIBRARY).open("stubborn-brush");
    EXPECT_EQ(effect.text("centre"), "0.5,0.25");
    effect.set("Centre", "0.1,0.9");
    EXPECT_EQ(effect.text("Centre"), "0.1,0.9");
    Picture picture(2, 2);
    EXPECT_FALSE(effect.render(picture.record(), picture.record(), kWholeFrame));
}

}  // namespace
}  // namespace brushworks::host
