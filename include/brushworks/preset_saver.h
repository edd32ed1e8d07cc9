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

/// Both operations return 0 for done and 1 for not done. The user is told why not, unless he closed
/// the panel himself or memory ran out. `parent`, the window that the panels belong to, may be
/// null; on Linux its value is the id of an X11 window. `reserved` is not read. [the thread of the
/// host's user interface]
class IPresetSaver : public IUnknown {
  public:
    /// Lets the user choose a file, and reads it into `*preset`: names, entries and their count.
    /// These are overwritten as soon as the file is read, also where the preset then turns out to
    /// be of another effect; so hand over a record of its own and take it when the answer is 0.
    /// Values are not compared with any range. Without a `library` any preset with entries is
    /// taken.
    virtual int Load(OpaqueWindowPtr* parent, IEffectLibrary* library, unsigned int effect,
                     CEffectPreset* preset, char* reserved) = 0;
    /// Lets the user choose a file, and writes `*preset` there, a file of that name being replaced
    /// only when all is written. The names of the library and of the effect in `*preset` are filled
    /// in, whatever comes of it. Without `preset` or `library` the answer is 1, with no panel.
    virtual int Save(OpaqueWindowPtr* parent, IEffectLibrary* library, unsigned int effect,
                     CEffectPreset* preset, char* reserved) = 0;
};

}  // namespace brushworks
