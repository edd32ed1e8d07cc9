// A library of effects that do what no effect of the real one does on demand: they fail, they take
// their time, they have odd names, and a point. Tests load it in place of the real library.
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <vector>

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

/// What an effect does to a picture: the options of its first parameter.
enum Mood { kRefuse, kSleep, kCopy, kMoods };
constexpr const char* kMoodNames[kMoods] = {"Refuse", "Sleep", "Copy"};

struct MoodyPreset {
    const char* name;
    Mood mood;
};

struct MoodyTables {
    const char* name;
    Mood mood;  ///< by default
    std::vector<MoodyPreset> presets;
};

const std::vector<MoodyTables>& effectTables() {
    static const std::vector<MoodyTables> tables = {
        {"Stubborn Brush", kRefuse, {}},
        {"Odd <i>&</i> Brush",
         kCopy,
         {{"\"Quoted\" & <b>bold</b>", kCopy}, {"It's $HOME", kCopy}, {"it s home", kCopy}}},
        {"Fickle Brush", kCopy, {{"Never", kRefuse}}},
        {"Sleepy Brush", kSleep, {}},
    };
    return tables;
}

void copyPicture(const FrameParams& from, const FrameParams& to) {
    for (int y = 0; y < to.nHeight; ++y) {
        std::memcpy(to.pBuffer + static_cast<std::ptrdiff_t>(y) * to.nByteSpan,
                    from.pBuffer + static_cast<std::ptrdiff_t>(y) * from.nByteSpan,
                    static_cast<std::size_t>(to.nWidth) * to.nDepth);
    }
}

class MoodyEffect final : public Counted<IVideoEffect> {
  public:
    explicit MoodyEffect(const MoodyTables& tables) : m_tables(tables) {}

    const char* GetName() override { return m_tables.name; }
    unsigned int GetCaps() override { return 0; }
    bool EnumParam(unsigned int index, EffectParamSetup* setup) override {
        if (index > 1) return false;
        if (index == 0) {
            setup->nType = kParamList;
            setup->nOptionCount = kMoods;
            setup->defaultValue.index = m_tables.mood;
            std::snprintf(setup->szName, sizeof setup->szName, "Mood");
            for (int i = 0; i < kMoods; ++i) {
                std::snprintf(setup->szOptions[i], sizeof setup->szOptions[i], "%s", kMoodNames[i]);
            }
        } else {
            setup->nType = kParamPoint;
            setup->defaultValue.point = {0.5F, 0.25F};
            std::snprintf(setup->szName, sizeof setup->szName, "Centre");
        }
        return true;
    }
    bool Render(IVideoHost* host, FrameParams* source, FrameParams* /*second*/,
                FrameParams* destination, RenderInfo* /*info*/) override {
        EffectParam mood;
        host->GetParam(0, &mood, kParamList);
        if (mood.index == kSleep) sleep(kSleepSeconds);
        if (mood.index != kCopy) return false;
        copyPicture(*source, *destination);
        return true;
    }
    const char* EnumPreset(unsigned int index) override {
        return index < m_tables.presets.size() ? m_tables.presets[index].name : nullptr;
    }
    bool EnumPresetData(unsigned int preset, unsigned int param, EffectParam* value) override {
        if (preset >= m_tables.presets.size() || param > 1) return false;
        if (param == 0) {
            value->index = m_tables.presets[preset].mood;
        } else {
            value->point = {0.75F, 0.5F};
        }
        return true;
    }

  private:
    const MoodyTables& m_tables;
};

class StubbornLibrary final : public Counted<IEffectLibrary> {
  public:
    const char* GetName() override { return "Stubborn"; }
    IVideoEffect* CreateEffect(unsigned int index) override {
        return index < effectTables().size() ? new MoodyEffect(effectTables()[index]) : nullptr;
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
