// Parameter values for programs: sliders are numbers in display units, check boxes true and false,
// all else texts that `paint --set` takes.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "host/parameter_info.h"

namespace brushworks::tools {

using Json = nlohmann::ordered_json;

/// A printed number with the digits that it has.
Json numberAsJson(const std::string& text);

Json valueAsJson(const host::ParameterInfo& parameter, EffectParam value);

/// An object of all values by the addresses of their parameters.
Json valuesAsJson(const host::EffectInfo& effect, const host::Preset& preset);

}  // namespace brushworks::tools
