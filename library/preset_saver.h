// The preset service: the user chooses a file in the desktop's panels, and hears of what failed.
#pragma once

#include "brushworks/library.h"
#include "library/atomic.h"

namespace brushworks {

class CPresetSaver final : public IPresetSaver {
  public:
    std::uint32_t QueryInterface(const _GUID& iid, void** face) override;
    std::uint32_t AddRef() override { return m_references.Add(); }
    std::uint32_t Release() override;

    int Load(OpaqueWindowPtr* parent, IEffectLibrary* library, unsigned int effect,
             CEffectPreset* preset, char* reserved) override;
    /// A path of more than 255 bytes counts as one that cannot be written: cut, it would be another
    /// file's.
    int Save(OpaqueWindowPtr* parent, IEffectLibrary* library, unsigned int effect,
             CEffectPreset* preset, char* reserved) override;

  private:
    RefCount m_references;
};

/// Whether `preset` can be given to the effect: it names library and effect, and has an entry of
/// the right type for each parameter. More entries than parameters are no fault, and values are not
/// looked at. With no library, whether there are any entries.
bool ValidatePreset(IEffectLibrary* library, unsigned int effect, CEffectPreset* preset);

}  // namespace brushworks
