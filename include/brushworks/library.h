// The library object, and the two functions that the shared library exports.
#pragma once

#include "brushworks/effect.h"
#include "brushworks/frame_processor.h"
#include "brushworks/preset_saver.h"
#include "brushworks/unknown.h"

namespace brushworks {

/// The collection of effects. Every object that it hands out has one reference, which is the
/// caller's.
class IEffectLibrary : public IUnknown {
  public:
    /// The collection's name; constant, never freed. [any thread]
    virtual const char* GetName() = 0;
    /// A new effect, or null for an index past the last (0 to 11 exist): callers count by walking.
    /// Null too where memory runs out, as the services below.
    /// Effects do not count for CanUnloadDLLNow. [any thread]
    virtual IVideoEffect* CreateEffect(unsigned int index) = 0;
    /// Shows help on an effect; false when there is none to show. [user interface thread]
    virtual bool OpenHelp(OpaqueWindowPtr* parent, unsigned int effect) = 0;
    /// The licensing manager, or null where the collection needs none. [any thread]
    virtual IUnknown* GetActivationManager() = 0;
    /// A new frame service; it does not count for CanUnloadDLLNow. [any thread]
    virtual IFrameProcessor* GetFrameProcessor() = 0;
    /// A new preset service. [any thread]
    virtual IPresetSaver* GetPresetSaver() = 0;
};

enum EffectLangItemType : std::int32_t {};
struct _tagUIExtraControlSet;

/// Translation of the texts; answered by the library object when it has translations to offer.
/// Unlike all others it has no destructor entries.
class IMultiLingual {
  public:
    virtual std::uint32_t QueryInterface(const _GUID& iid, void** face) = 0;
    virtual std::uint32_t AddRef() = 0;
    virtual std::uint32_t Release() = 0;
    /// Stores the translation of an effect's text in `buffer` of `size` bytes.
    virtual bool TranslateEffect(const char* effect, EffectLangItemType type, const char* item,
                                 const char* group, const char* text, char* buffer, int size) = 0;
    /// Stores the translation of a text that belongs to no effect.
    virtual bool TranslateCommon(const char* group, EffectLangItemType type, const char* text,
                                 char* buffer, int size) = 0;
    /// The language in use.
    virtual int GetLang() = 0;
    virtual bool InitControlSetFromXml(_tagUIExtraControlSet* controls) = 0;

  protected:
    ~IMultiLingual() = default;
};

extern "C" {

/// A new library object with one reference; null where memory runs out. Two calls give two objects.
/// [any thread]
__attribute__((visibility("default"))) IEffectLibrary* GetEffectsLibrary();

/// True when no library object lives. Effects are not counted: a host that unloads must know for
/// itself that it has released them all. [any thread]
__attribute__((visibility("default"))) bool CanUnloadDLLNow();
}

/// Types for dlsym.
using GetEffectsLibraryFunction = IEffectLibrary*();
using CanUnloadDLLNowFunction = bool();

}  // namespace brushworks
