// Parameter values as people write them: sliders in display units, lists by option name, colours
// as #rrggbb, check boxes as on and off, points as x,y.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/parameter_info.h"

namespace brushworks::host {

/// The whole of `text` as a finite number, or nothing.
std::optional<double> parseNumber(std::string_view text);

/// The value that `text` stands for; throws UsageError that tells the range or the options.
EffectParam parseValue(const ParameterInfo& parameter, std::string_view text);

/// The shortest text that parseValue turns into the same value.
std::string printValue(const ParameterInfo& parameter, EffectParam value);

/// What a slider shows for its value, in display units.
double displayValue(const ParameterInfo& slider, float normalized);

/// What a person may write for the parameter, such as "a number from -100 to 100".
std::string expectedText(const ParameterInfo& parameter);

/// The number with as few decimals as tell it from its neighbours of single precision.
std::string printNumber(float number);

}  // namespace brushworks::host
