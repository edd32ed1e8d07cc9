// The library object behind GetEffectsLibrary.
#pragma once

#include "brushworks/library.h"
#include "library/atomic.h"

namespace brushworks {

/// Counts the objects that keep the library from being unloaded: library objects alone.
class DLLDependentObject {
  public:
    DLLDependentObject() { IncrementAtomic(&m_nInstanceCount); }
    virtual ~DLLDependentObject() { DecrementAtomic(&m_nInstanceCount); }
    DLLDependentObject(const DLLDependentObject&) = delete;
    DLLDependentObject& operator=(const DLLDependentObject&) = delete;

    static bool IsAnyAlive();

  private:
    static std::int32_t m_nInstanceCount;
};

/// Holds the library's translation face, which is shown once there are translations to offer.
class CMultiLingualBase : public IMultiLingual {
  public:
    bool TranslateEffect(const char*, EffectLangItemType, const char*, const char*, const char*,
                         char*, int) override {
        return false;
    }
    bool TranslateCommon(const char*, EffectLangItemType, const char*, char*, int) override {
        return false;
    }
    int GetLang() override { return 0; }
    bool InitControlSetFromXml(_tagUIExtraControlSet*) override { return false; }

  protected:
    ~CMultiLingualBase() = default;

    void* m_pTranslations = nullptr;
    void* m_pControlSet = nullptr;
    bool m_bTranslated = false;
};

class CArtisticEffects final : public DLLDependentObject,
                               public IEffectLibrary,
                               public CMultiLingualBase {
  public:
    CArtisticEffects();

    std::uint32_t QueryInterface(const _GUID& iid, void** face) override;
    std::uint32_t AddRef() override { return m_references.Add(); }
    std::uint32_t Release() override;

    const char* GetName() override { return "Lumenfold Brushworks"; }
    IVideoEffect* CreateEffect(unsigned int index) override;
    bool OpenHelp(OpaqueWindowPtr*, unsigned int) override { return false; }
    IUnknown* GetActivationManager() override { return nullptr; }
    IFrameProcessor* GetFrameProcessor() override { return nullptr; }
    IPresetSaver* GetPresetSaver() override;

  private:
    void TellStatistics();

    RefCount m_references;
};

}  // namespace brushworks
