// Presets in files, chosen by the user in the platform's own panels.
#pragma once

#include <cstddef>
#include <cstdint>

#include "brushworks/parameter.h"
#include "brushworks/unknown.h"

namespace brushworks {

class IEffectLibrary;
struct OpaqueWindowPtr;

/// The current values of one effect, as a preset file holds them.
struct CEffectPreset {
    static constexpr int kNameBytes = 260;
    static constexpr int kMaxParams = 100;

    struct Param {
        EffectParam value;
        std::uint32_t nType;  ///< a ParamType
    };

    char szName[kNameBytes];         ///< of the preset
    char szLibraryName[kNameBytes];  ///< IEffectLibrary::GetName
    char szEffectName[kNameBytes];   ///< IVideoEffect::GetName
    Param params[kMaxParams];        ///< in the order of EnumParam
    std::int32_t nParamCount;        ///< entries in use
};
static_assert(sizeof(CEffectPreset::Param) == 16 && offsetof(CEffectPreset, params) == 784 &&
              offsetof(CEffectPreset, nParamCount) == 2384 && sizeof(CEffectPreset) == 2392);

/// Both operations return 0 for done and 1 for not done, after telling the user why. `parent`, the
/// window that the panels belong to, may be null; on Linux its value is the id of an X11 window.
/// [the thread of the host's user interface]
class IPresetSaver : public IUnknown {
  public:
    virtual int Load(OpaqueWindowPtr* parent, IEffectLibrary* library, unsigned int effect,
                     CEffectPreset* preset, char* reserved) = 0;
    virtual int Save(OpaqueWindowPtr* parent, IEffectLibrary* library, unsigned int effect,
                     CEffectPreset* preset, char* reserved) = 0;
};

}  // namespace brushworks
