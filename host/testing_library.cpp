// A library of one effect that does what no effect of the real one does on demand: it fails, it
// takes its time, and it has a point. Tests load it in place of the real library.
#include <unistd.h>

#include <atomic>
#include <cstdio>

#include "brushworks/library.h"

namespace brushworks {
namespace {

constexpr unsigned int kSleepSeconds = 60;

/// The counting part of every object here.
template <class Face>
class Counted : public Face {
  public:
    std::uint32_t QueryInterface(const _GUID& /*iid*/, void** face) override {
        *face = nullptr;
        return kNoInterface;
    }
    std::uint32_t AddRef() override { return ++m_nReferences; }
    std::uint32_t Release() override {
        const std::uint32_t left = --m_nReferences;
        if (left == 0) delete this;
        return left;
    }

  private:
    std::atomic<std::uint32_t> m_nReferences = 1;
};

class StubbornEffect final : public Counted<IVideoEffect> {
  public:
    const char* GetName() override { return "Stubborn Brush"; }
    unsigned int GetCaps() override { return 0; }
    bool EnumParam(unsigned int index, EffectParamSetup* setup) override {
        if (index > 1) return false;
        if (index == 0) {
            setup->nType = kParamList;
            setup->nOptionCount = 2;
            std::snprintf(setup->szName, sizeof setup->szName, "Mood");
            std::snprintf(setup->szOptions[0], sizeof setup->szOptions[0], "Refuse");
            std::snprintf(setup->szOptions[1], sizeof setup->szOptions[1], "Sleep");
        } else {
            setup->nType = kParamPoint;
            setup->defaultValue.point = {0.5F, 0.25F};
            std::snprintf(setup->szName, sizeof setup->szName, "Centre");
        }
        return true;
    }
    bool Render(IVideoHost* host, FrameParams*, FrameParams*, FrameParams*, RenderInfo*) override {
        EffectParam mood;
        host->GetParam(0, &mood, kParamList);
        if (mood.index == 1) sleep(kSleepSeconds);
        return false;
    }
    const char* EnumPreset(unsigned int) override { return nullptr; }
    bool EnumPresetData(unsigned int, unsigned int, EffectParam*) override { return false; }
};

class StubbornLibrary final : public Counted<IEffectLibrary> {
  public:
    const char* GetName() override { return "Stubborn"; }
    IVideoEffect* CreateEffect(unsigned int index) override {
        return index == 0 ? new StubbornEffect : nullptr;
    }
    bool OpenHelp(OpaqueWindowPtr*, unsigned int) override { return false; }
    IUnknown* GetActivationManager() override { return nullptr; }
    IFrameProcessor* GetFrameProcessor() override { return nullptr; }
    IPresetSaver* GetPresetSaver() override { return nullptr; }
};

}  // namespace

IEffectLibrary* GetEffectsLibrary() {
    return new StubbornLibrary;
}
bool CanUnloadDLLNow() {
    return true;
}

}  // namespace brushworks
