// Preset files: an effect's current values as XML.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "brushworks/preset_saver.h"

class TiXmlElement;

namespace brushworks {

class IEffectData;

/// Numbers are written so that each float comes back bit for bit, whatever the locale. A file holds
/// finite numbers alone: NaN is 0, and what lies beyond a float is the greatest float of its sign.
/// [any thread]
class CPresetSerializer {
  public:
    /// Writes `preset` to `path`, in UTF-8. False, with what was at `path` left as it was, when it
    /// cannot be written, or when it could not be read back: a count beyond the entries, a name
    /// that does not end, is not UTF-8, or holds control characters.
    static bool Save(const char* path, CEffectPreset* preset);
    /// Reads `preset` from `path`. False when there are no parameters; and, with `preset` left as
    /// it was, for what is no preset file: not regular, too large or too deep, damaged, or with a
    /// name that `preset` has no room for. Entries beyond the 100th are skipped.
    static bool Load(const char* path, CEffectPreset* preset);

    /// What Save writes; none for what it does not.
    static std::optional<std::string> Print(CEffectPreset* preset);
    /// Load of a text in memory.
    static bool Parse(std::string_view text, CEffectPreset* preset);

    /// Appends a "parameter" to `element` for each entry of `preset`. `data` is not used.
    static void Add(TiXmlElement* element, CEffectPreset* preset, IEffectData* data);
    /// Appends an entry to `preset` for each "parameter" of `element`, as long as there is room.
    /// False when `preset` has none in the end. `data` is not used.
    static bool Get(TiXmlElement* element, CEffectPreset* preset, IEffectData* data);
};

}  // namespace brushworks
