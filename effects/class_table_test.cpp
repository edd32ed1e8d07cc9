// What all twelve effects have in common, seen from outside.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "effects/testing.h"
#include "library/artistic_effects.h"
#include "library/licensing.h"
#include "library/statistics.h"

namespace brushworks {
namespace {

using testing::EffectPointer;
using testing::kEffects;

TEST(Effects, AnswerForWhatTheyHaveAndNoMore) {
    for (unsigned int e = 0; e < kEffects; ++e) {
        const EffectPointer effect(NewEffect(e));
        SCOPED_TRACE(effect->GetName());
        unsigned int n = 0, p = 0;
        for (EffectParamSetup setup{}; effect->EnumParam(n, &setup);) ++n;
        while (effect->EnumPreset(p)) ++p;
        EffectParamSetup setup{}, untouched{};
        EffectParam value{};
        ASSERT_TRUE(n > 0 && effect->EnumParam(n - 1, &setup) && setup.bActive);
        EXPECT_FALSE(effect->EnumParam(n, &untouched));
        EXPECT_FALSE(effect->EnumParam(0, nullptr));
        EXPECT_EQ(std::string(untouched.szName), "");
        EXPECT_EQ(effect->EnumPreset(p + 1), nullptr);
        EXPECT_TRUE(effect->EnumPresetData(p - 1, n - 1, &value));
        EXPECT_FALSE(effect->EnumPresetData(0, n, &value));
        EXPECT_FALSE(effect->EnumPresetData(p, 0, &value));
        EXPECT_FALSE(effect->EnumPresetData(0, 0, nullptr));
    }
    EXPECT_EQ(NewEffect(kEffects), nullptr);
    EXPECT_EQ(NewEffect(~0u), nullptr);
}

TEST(Effects, FacesAreOneObject) {
    for (unsigned int e = 0; e < kEffects; ++e) {
        IVideoEffect* effect = NewEffect(e);
        void* face = nullptr;
        for (const _GUID& iid : {IID_IUnknown, IID_VideoEffect, IID_VideoGPUEffect}) {
            ASSERT_EQ(effect->QueryInterface(iid, &face), kInterfaceFound);
            EXPECT_EQ(face, effect);
            effect->Release();
        }
        _GUID padded = IID_VideoEffect;
        std::memset(reinterpret_cast<char*>(&padded) + 20, 0x5A, 4);
        ASSERT_EQ(effect->QueryInterface(padded, &face), kInterfaceFound);
        effect->Release();
        EXPECT_EQ(effect->QueryInterface(IID_PresetSaver, &face), 0x80004002u);
        EXPECT_EQ(face, nullptr);
        ASSERT_EQ(effect->QueryInterface(IID_ParamToolTip, &face), kInterfaceFound);
        auto* toolTips = static_cast<IParamToolTip*>(face);
        EXPECT_EQ(effect->Release(), 1u);
        ASSERT_EQ(toolTips->QueryInterface(IID_VideoEffect, &face), kInterfaceFound);
        EXPECT_EQ(face, effect);
        EXPECT_EQ(toolTips->Release(), 1u);
        EXPECT_EQ(toolTips->AddRef(), 2u);
        toolTips->Release();
        EXPECT_EQ(toolTips->Release(), 0u);  // the last reference, dropped through this face
    }
}

TEST(Effects, ReferencesAreCountedAcrossThreads) {
    IVideoEffect* effect = NewEffect(0);
    auto takeAndDrop = [effect] {
        for (int i = 0; i < 20000; ++i) {
            effect->AddRef();
            effect->Release();
        }
    };
    std::thread other(takeAndDrop);
    takeAndDrop();
    other.join();
    EXPECT_EQ(effect->Release(), 0u);
}

TEST(Effects, GPUAnswersAreHonest) {
    const EffectPointer effect(NewEffect(0));
    testing::TestHost host;  // offers no GL
    auto* gpu = static_cast<IVideoGPUEffect*>(effect.get());
    GPUCaps caps{7, 7, true};
    EXPECT_FALSE(gpu->GetGPUCaps(&host, nullptr, &caps, 0));
    EXPECT_EQ(caps.nReserved, 7);
    TextureParams texture;
    RenderInfo info{};
    EXPECT_FALSE(gpu->RenderGPU(kRenderFinal, &host, nullptr, &texture, nullptr, &texture, &info));
    EXPECT_FALSE(
        gpu->RenderGPU(kRenderFinal, nullptr, nullptr, &texture, nullptr, &texture, &info));
    EXPECT_FALSE(
        gpu->RenderGPU(kRenderFinal, &host, nullptr, &texture, nullptr, &texture, nullptr));
}

/// Licensing that wants a mark, and statistics, which write down what they are asked.
class Recorder final : public ILicensing, public IUsageStatistics {
  public:
    Recorder() {
        SetLicensing(this);
        SetStatistics(this);
    }
    ~Recorder() override {
        SetLicensing(nullptr);
        SetStatistics(nullptr);
    }
    bool IsGPUAllowed() override { return false; }
    bool IsMarkRequired() override { return true; }
    void DrawMark(const char* name, IVideoHost*, FrameParams* frame, float strength) override {
        EXPECT_EQ(name, nullptr);
        EXPECT_EQ(strength, 1.0f);
        calls.push_back("mark, alpha " + std::to_string(frame->pBuffer[3]));
    }
    void DrawMarkGL(GPUHelper*, const char*, TextureParams*, TextureParams*, float) override {}
    void SetEffects(const char* const* names, unsigned int count) override {
        calls.push_back(std::to_string(count) + " effects to " + names[count - 1]);
    }
    void ReportRender(const char* effect, const FrameParams* frame) override {
        calls.push_back(std::string(effect) + " rendered " + std::to_string(frame->nWidth));
    }

    std::vector<std::string> calls;
};

TEST(Services, HearOfEachStepInItsOrder) {
    Recorder recorder;
    (new CArtisticEffects)->Release();
    const EffectPointer posterize(NewEffect(10));
    testing::TestHost host;
    testing::UseDefaults(*posterize, host);
    testing::RandomFrame src(7, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2);
    src.m_pBuffer[3] = 77;  // alpha is restored before the mark is drawn
    ASSERT_TRUE(testing::Render(*posterize, host, src, dst));
    host.values[3].index = -1;
    ASSERT_FALSE(testing::Render(*posterize, host, src, dst));  // a failed render tells nobody
    const EffectPointer impressionist(NewEffect(4));
    testing::RandomFrame plane(5, 4, PixelFormatMono8, 3);
    ASSERT_FALSE(testing::Render(*impressionist, host, plane, plane));  // but this one always does
    EXPECT_THAT(recorder.calls,
                ::testing::ElementsAre("12 effects to Water Color", "mark, alpha 77",
                                       "Posterize rendered 9", "Impressionist rendered 5"));
}

}  // namespace
}  // namespace brushworks
