// Which effect with which values, as the options of a subcommand tell.
#pragma once

#include <string>
#include <vector>

#include "host/library.h"

namespace brushworks::tools {

struct EffectChoice {
    std::string effect;               ///< id, display name or index
    std::string preset;               ///< "" for the defaults
    std::string presetFile;           ///< in place of `preset`, or ""
    std::vector<std::string> values;  ///< NAME=VALUE, after the preset
};

/// Opens the effect and sets its values. Throws host::Error.
host::Effect openEffect(const host::Library& library, const EffectChoice& choice);

}  // namespace brushworks::tools
