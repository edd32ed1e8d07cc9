// The subcommands for preset files: preset save and preset show.
#pragma once

#include <ostream>
#include <string>

#include "effect_choice.h"

namespace brushworks::tools {

struct PresetSaveOptions {
    EffectChoice choice;
    std::string name;  ///< "" for that of the preset that it starts from, or else of the file
    std::string output;
    bool force = false;
};

/// Writes the chosen values to a preset file. Throws std::exceptions with texts for the user; then
/// there is no output.
void savePreset(const host::Library& library, const PresetSaveOptions& options);

/// Tells what the file at `path` holds, for people or as JSON: in display units where it fits an
/// effect of `library`, else the types and numbers as they stand. Throws host::Error.
void showPreset(const host::Library& library, const std::string& path, bool json,
                std::ostream& out);

}  // namespace brushworks::tools
