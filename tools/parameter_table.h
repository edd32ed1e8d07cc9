// A table of an effect's parameters for people to read.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "host/parameter_info.h"

namespace brushworks::tools {

/// What the row of a parameter says; as many cells for each.
using ParameterCells = std::function<std::vector<std::string>(const host::ParameterInfo&)>;

/// One row for each parameter that has a value, in columns, below the names of their panels.
void writeParameterTable(const std::vector<host::ParameterInfo>& parameters, std::ostream& out,
                         const ParameterCells& cells);

}  // namespace brushworks::tools
