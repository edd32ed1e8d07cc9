// Which effect with which values, as the options of a subcommand tell.
#pragma once

#include <string>
#include <vector>

#include "host/animation.h"
#include "host/library.h"

namespace brushworks::tools {

struct EffectChoice {
    std::string effect;               ///< id, display name or index
    std::string preset;               ///< "" for the defaults
    std::string presetFile;           ///< in place of `preset`, or ""
    std::vector<std::string> values;  ///< NAME=VALUE, after the preset
};

/// An effect, and those of its values that move over time.
struct ChosenEffect {
    host::Effect effect;
    std::vector<host::Animation> animations;  ///< one for a parameter at most
};

/// Opens the effect and sets its values; of two settings of a parameter the later one counts.
/// `frameRate` is that of the input, in frames a second, 0 where it is not known. Throws
/// host::Error.
ChosenEffect chooseEffect(const host::Library& library, const EffectChoice& choice,
                          double frameRate);

/// The same where time does not pass: throws host::UsageError for a value that moves.
host::Effect openEffect(const host::Library& library, const EffectChoice& choice);

}  // namespace brushworks::tools
