// Preset files at the host's hand: an effect's values into a file, and a file's values back, with
// words for a person where the two do not fit.
#pragma once

#include <string>

#include "brushworks/preset_saver.h"
#include "host/effect.h"

namespace brushworks::host {

/// What a file holds, for whichever effect of whichever library.
class PresetFile {
  public:
    /// Throws Error for what is no whole preset file.
    static PresetFile load(const std::string& path);

    /// As it was read: the names end, and there are as many entries as it counts.
    const CEffectPreset& record() const { return m_record; }

    /// The values for `effect`, which may lie outside the ranges of its controls; entries beyond
    /// its parameters are left out. Throws UsageError when the file is for another effect or
    /// library, and Error when it was saved by a version with other parameters.
    Preset presetFor(const Effect& effect) const;

  private:
    PresetFile() = default;

    std::string m_sPath;
    CEffectPreset m_record = {};
};

/// Writes the values that `effect` has now; what was at `path` is replaced, and stays when this
/// fails. Throws UsageError for a name that a file cannot hold, and Error.
void savePresetFile(const std::string& path, const Effect& effect, const std::string& presetName);

/// What the names of the effect's preset files end in, without the point.
std::string presetExtension(const Effect& effect);

}  // namespace brushworks::host
