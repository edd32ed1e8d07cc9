// Values on their way between a frei0r host and an effect.
#pragma once

#include <frei0r.h>

#include <string_view>

#include "host/parameter_info.h"

namespace brushworks::frei0r {

/// What the host's number, colour or position means to the effect. `value` points to what frei0r
/// prescribes for the parameter's type. What lies a little outside frei0r's range of 0 to 1, as
/// smooth animations do, means the end; host::UsageError for what lies far outside.
EffectParam fromHost(const host::ParameterInfo& parameter, f0r_param_t value);

/// The option of that name, in any letter case, or else of that index. Throws host::UsageError.
EffectParam optionFromText(const host::ParameterInfo& list, std::string_view text);

/// Writes a value that is no string to where the host wants it.
void toHost(const host::ParameterInfo& parameter, EffectParam value, f0r_param_t target);

}  // namespace brushworks::frei0r
