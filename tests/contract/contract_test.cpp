// A host with declarations of its own drives the shared library by dlopen alone, through everything
// a host may call.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <vector>

#include "own_declarations.h"

namespace other {
namespace {

/// A face that lives as long as the test and only counts.
template <class Face>
struct Counted : Face {
    uint32_t AddRef() override { return ++references; }
    uint32_t Release() override { return --references; }
    uint32_t references = 1;
};

struct Lender : Counted<Memory> {
    uint32_t QueryInterface(const Guid&, void**) override { return 0x80004002; }
    void Allocate(void** block, unsigned long size) override { *block = Lend(size); }
    void Free(void* block) override { TakeBack(block); }
    void AllocatePicture(uint8_t** buffer, int width, int height, int depth, int* span) override {
        *span = (width * depth + 31) / 16 * 16;
        *buffer = static_cast<uint8_t*>(Lend(static_cast<size_t>(*span) * height));
    }
    void FreePicture(uint8_t* buffer) override { TakeBack(buffer); }

    int out = 0, lent = 0;

  private:
    void* Lend(size_t bytes) {
        ++lent;
        ++out;
        return std::malloc(bytes);
    }
    void TakeBack(void* block) {
        --out;
        std::free(block);
    }
};

/// Offers no entry that is ever used: the answer to GetGPUCaps needs only that it exists.
struct FakeGL : Counted<Unknown> {
    uint32_t QueryInterface(const Guid&, void**) override { return 0x80004002; }
};

struct PlainHost : Counted<Host> {
    uint32_t QueryInterface(const Guid& id, void** face) override {
        Unknown* found = nullptr;
        if (lender && std::memcmp(&id, &kMemory, 20) == 0) found = lender;
        if (gl && std::memcmp(&id, &kHostGL, 20) == 0) found = gl;
        if (found) found->AddRef();
        *face = found;
        return found ? 0 : 0x80004002;
    }
    void GetParam(unsigned index, uint64_t* value, unsigned) override { *value = values[index]; }
    HostInfo GetHostInfo() override { return {"other", {}}; }

    std::vector<uint64_t> values;
    Lender* lender = nullptr;
    FakeGL* gl = nullptr;
};

class Contract : public ::testing::Test {
  protected:
    void SetUp() override {
        m_file = dlopen(BRUSHWORKS_LIBRARY_FILE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(m_file, nullptr) << dlerror();
        getLibrary = reinterpret_cast<Library* (*)()>(dlsym(m_file, "GetEffectsLibrary"));
        canUnload = reinterpret_cast<bool (*)()>(dlsym(m_file, "CanUnloadDLLNow"));
        ASSERT_TRUE(getLibrary && canUnload);
    }
    void TearDown() override {
        if (m_file) dlclose(m_file);
    }

    Library* (*getLibrary)() = nullptr;
    bool (*canUnload)() = nullptr;

  private:
    void* m_file = nullptr;
};

TEST_F(Contract, LibraryObjectsAloneKeepTheFileLoaded) {
    EXPECT_TRUE(canUnload());
    Library* library = getLibrary();
    Library* second = getLibrary();
    EXPECT_NE(library, second);
    EXPECT_STREQ(library->GetName(), "Lumenfold Brushworks");
    EXPECT_EQ(second->Release(), 0u);
    Effect* effect = library->CreateEffect(11);
    EXPECT_STREQ(effect->GetName(), "Water Color");
    EXPECT_EQ(library->CreateEffect(12), nullptr);
    EXPECT_FALSE(canUnload());
    EXPECT_EQ(library->Release(), 0u);
    EXPECT_TRUE(canUnload());  // with the effect still alive
    EXPECT_EQ(effect->Release(), 0u);
}

TEST_F(Contract, LibraryFaces) {
    Library* library = getLibrary();
    void* face = nullptr;
    for (const Guid& id : {kUnknown, kLibrary}) {
        ASSERT_EQ(library->QueryInterface(id, &face), 0u);
        EXPECT_EQ(face, library);
        EXPECT_EQ(library->Release(), 1u);
    }
    for (const Guid& id : {kLanguages, kEffect}) {
        face = library;
        EXPECT_EQ(library->QueryInterface(id, &face), 0x80004002u);
        EXPECT_EQ(face, nullptr);
    }
    EXPECT_FALSE(library->OpenHelp(nullptr, 0));
    EXPECT_EQ(library->GetActivationManager(), nullptr);  // nothing to activate
    EXPECT_EQ(library->AddRef(), 2u);
    EXPECT_EQ(library->Release(), 1u);
    EXPECT_EQ(library->Release(), 0u);
}

TEST_F(Contract, DescriptionsOfAllTwelve) {
    constexpr struct {
        const char* name;
        unsigned controls, presets;
    } kEffects[] = {{"Toonery Plus", 17, 21},  {"Charcoal", 6, 10},
                    {"Colored Pencil", 6, 10}, {"Aurascope Plus", 6, 11},
                    {"Impressionist", 12, 13}, {"Mosaic", 3, 5},
                    {"Mural", 6, 12},          {"Oil", 6, 8},
                    {"Paper Collage", 11, 14}, {"Pencil Rubbing", 5, 7},
                    {"Posterize", 5, 8},       {"Water Color", 6, 11}};
    Library* library = getLibrary();
    for (const auto& expected : kEffects) {
        Effect* effect = library->CreateEffect(static_cast<unsigned>(&expected - kEffects));
        EXPECT_STREQ(effect->GetName(), expected.name);
        unsigned presets = 0;
        while (effect->EnumPreset(presets)) ++presets;
        EXPECT_EQ(presets, expected.presets);
        EXPECT_EQ(effect->GetCaps(), 0x3C1u);
        void* face = nullptr;
        ASSERT_EQ(effect->QueryInterface(kToolTips, &face), 0u);
        auto* toolTips = static_cast<ToolTips*>(face);
        for (unsigned i = 0; i < 100; ++i) {
            Control setup{};
            const bool exists = effect->EnumParam(i, &setup);
            EXPECT_EQ(exists, i < expected.controls);
            EXPECT_EQ(exists, setup.active);
            EXPECT_EQ(effect->EnumToolTip(i), toolTips->EnumToolTip(i));
            if (!exists) {
                EXPECT_EQ(toolTips->EnumToolTip(i), nullptr);
            }
        }
        toolTips->Release();
        EXPECT_EQ(effect->Release(), 0u);
    }
    Effect* posterize = library->CreateEffect(10);
    Control setup{};
    ASSERT_TRUE(posterize->EnumParam(3, &setup));
    EXPECT_EQ(setup.type, 1u);
    EXPECT_EQ(setup.options, 8u);
    EXPECT_STREQ(setup.texts[7], "9");
    EXPECT_STREQ(setup.name, "Levels");
    EXPECT_EQ(setup.width, 77);
    EXPECT_STREQ(posterize->EnumToolTip(4), "Sets number of colors to use");
    EXPECT_EQ(posterize->EnumToolTip(4), posterize->EnumToolTip(3));  // one text, shared
    setup = {};
    ASSERT_TRUE(posterize->EnumParam(2, &setup));
    EXPECT_EQ(setup.low, -100.0f);
    EXPECT_EQ(setup.high, 100.0f);
    EXPECT_EQ(setup.value, 0x3EF5C28Fu);
    uint64_t word = 0;
    ASSERT_TRUE(posterize->EnumPresetData(4, 0, &word));
    EXPECT_STREQ(posterize->EnumPreset(4), "Offset Printing");
    EXPECT_EQ(word, 0x3EF851ECu);
    posterize->Release();
    library->Release();
}

TEST_F(Contract, ARenderWithAndWithoutTheHostsMemory) {
    Library* library = getLibrary();
    Effect* effect = library->CreateEffect(10);
    PlainHost host;
    Lender lender;
    Control setup{};
    for (unsigned i = 0; effect->EnumParam(i, &setup); ++i) host.values.push_back(setup.value);
    std::vector<uint8_t> source(64 * 48 * 4), first(source.size()), second(source.size());
    for (size_t i = 0; i < source.size(); ++i) source[i] = static_cast<uint8_t>(i * 7 + i / 200);
    Frame from{source.data(), 64, 48, 256, 4, 0, 0, 0, false}, to = from;
    Info info{0x20, 1.0, 0, 3, {}};
    to.pixels = first.data();
    ASSERT_TRUE(effect->Render(&host, &from, nullptr, &to, &info));
    host.lender = &lender;
    to.pixels = second.data();
    ASSERT_TRUE(effect->Render(&host, &from, nullptr, &to, nullptr));
    EXPECT_EQ(first, second);
    EXPECT_NE(first, source);
    EXPECT_GT(lender.lent, 0);
    EXPECT_EQ(lender.out, 0);
    EXPECT_EQ(lender.references, 1u);
    EXPECT_EQ(host.references, 1u);
    effect->Release();
    library->Release();
}

/// Each operation leaves a trace that no other one leaves, so that one in another's place is seen.
TEST_F(Contract, TheFrameServiceInItsOrder) {
    Library* library = getLibrary();
    FrameService* service = library->GetFrameProcessor();
    FrameService* second = library->GetFrameProcessor();
    ASSERT_TRUE(service && second);
    EXPECT_NE(service, second);
    EXPECT_EQ(second->Release(), 0u);
    EXPECT_EQ(library->Release(), 0u);
    EXPECT_TRUE(canUnload());  // with the service still alive
    void* face = nullptr;
    ASSERT_EQ(service->QueryInterface(kFrames, &face), 0u);
    EXPECT_EQ(face, service);
    EXPECT_EQ(service->Release(), 1u);

    using Bytes = std::vector<uint8_t>;
    const auto frame = [](Bytes& bytes, int width, int depth = 4, int format = 0) {
        return Frame{bytes.data(),
                     width,
                     static_cast<int>(bytes.size()) / (width * depth),
                     width * depth,
                     depth,
                     0,
                     0,
                     format,
                     false};
    };
    Bytes one = {10, 20, 30, 255, 1, 2, 3, 51}, other(8);  // two rows of one pixel
    Frame a = frame(one, 1), b = frame(other, 1);
    EXPECT_TRUE(service->Copy(&a, &b));
    EXPECT_EQ(other, one);
    EXPECT_TRUE(service->ReverseChannels(&a, &b));
    EXPECT_EQ(other, (Bytes{255, 30, 20, 10, 51, 3, 2, 1}));
    EXPECT_TRUE(service->SetChannelValue(&b, 1, 77));
    EXPECT_EQ(other, (Bytes{255, 77, 20, 10, 51, 77, 2, 1}));
    unsigned order[4] = {3, 0, 1, 2};
    EXPECT_TRUE(service->SwapChannels(&b, order));
    EXPECT_EQ(other, (Bytes{10, 255, 77, 20, 1, 51, 77, 2}));
    EXPECT_TRUE(service->FlipInto(&a, &b));
    EXPECT_EQ(other, (Bytes{1, 2, 3, 51, 10, 20, 30, 255}));
    EXPECT_TRUE(service->FlipInPlace(&b));
    EXPECT_EQ(other, one);
    EXPECT_TRUE(service->CopyChannel(&a, &b, 0, 2));
    EXPECT_EQ(other, (Bytes{10, 20, 10, 255, 1, 2, 1, 51}));
    EXPECT_TRUE(service->InvertChannel(&b, 0));
    EXPECT_EQ(other, (Bytes{245, 20, 10, 255, 254, 2, 1, 51}));
    EXPECT_TRUE(service->AlphaPremul(&b));
    EXPECT_EQ(other, (Bytes{245, 20, 10, 255, 50, 0, 0, 51}));
    Bytes clear(8, 0);
    Frame nothing = frame(clear, 1);
    EXPECT_TRUE(service->AlphaBlend(&nothing, &a, &b, true));
    EXPECT_EQ(other, one);

    Bytes wide(16);
    Frame w = frame(wide, 2);
    EXPECT_TRUE(service->Resize(&a, &w, 0));
    EXPECT_EQ(wide, (Bytes{10, 20, 30, 255, 10, 20, 30, 255, 1, 2, 3, 51, 1, 2, 3, 51}));
    Rect lowest = {0, 1, 0, 1};
    EXPECT_TRUE(service->ResizeCrop(&a, &lowest, &w, 0));
    EXPECT_EQ(wide, (Bytes{1, 2, 3, 51, 1, 2, 3, 51, 1, 2, 3, 51, 1, 2, 3, 51}));
    Bytes packed = {235, 128, 16, 128}, pixels(8);  // white and black
    Frame p = frame(packed, 2, 2), q = frame(pixels, 2);
    EXPECT_TRUE(service->UnpackYUY2(&p, &q, 9, nullptr));
    EXPECT_EQ(pixels, (Bytes{255, 255, 255, 9, 0, 0, 0, 9}));
    packed = {0, 0, 0, 0};
    EXPECT_TRUE(service->PackYUY2(&q, &p, nullptr));
    EXPECT_EQ(packed, (Bytes{235, 128, 16, 128}));

    float sample[4] = {0.5f, 0.25f, 0.25f, 0.25f};
    Frame f{reinterpret_cast<uint8_t*>(sample), 1, 1, 16, 16, 0, 0, 4, false};
    const float bounds[4] = {0.75f, 0.25f, 0, 0};
    EXPECT_TRUE(service->RaiseToBounds(&f, bounds));
    EXPECT_EQ(sample[0], 0.75f);
    EXPECT_TRUE(service->Square(&f));
    EXPECT_EQ(sample[1], 0.0625f);
    EXPECT_TRUE(service->SquareRoot(&f));
    EXPECT_EQ(sample[1], 0.25f);
    EXPECT_TRUE(service->ARGB32ToAppleR4FL(&f, &f));
    EXPECT_NEAR(sample[1], 0.25f * 219 / 255, 0.001f);  // luma has no offset here
    EXPECT_TRUE(service->AppleR4FLToARGB32(&f, &f));
    EXPECT_NEAR(sample[1], 0.25f, 0.001f);
    EXPECT_EQ(service->Release(), 0u);
}

TEST_F(Contract, GPUCapsWithoutAContextSayNo) {
    Library* library = getLibrary();
    Effect* effect = library->CreateEffect(7);
    PlainHost host;
    Caps caps{9, 9, false};
    EXPECT_FALSE(effect->GetGPUCaps(&host, nullptr, &caps, 0));
    EXPECT_EQ(caps.supported, 9);
    FakeGL gl;
    host.gl = &gl;
    EXPECT_TRUE(effect->GetGPUCaps(&host, nullptr, &caps, 0));
    EXPECT_EQ(caps.zero, 0);
    EXPECT_EQ(caps.supported, 0);
    EXPECT_TRUE(caps.allowed);
    EXPECT_EQ(gl.references, 1u);
    effect->Release();
    library->Release();
}

}  // namespace
}  // namespace other
