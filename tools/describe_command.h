// The subcommands that tell what the library has: list and info.
#pragma once

#include <ostream>
#include <string>

#include "host/library.h"

namespace brushworks::tools {

/// One line per effect: index, id, display name.
void listEffects(const host::Library& library, std::ostream& out);

/// Parameters and presets of an effect for people to read.
void describeEffect(const host::EffectInfo& effect, std::ostream& out);

/// The same for programs, with the presets' values. Sliders are numbers in display units, check
/// boxes true and false, all else texts that `paint --set` takes.
void describeEffectAsJson(const host::EffectInfo& effect, std::ostream& out);

}  // namespace brushworks::tools
