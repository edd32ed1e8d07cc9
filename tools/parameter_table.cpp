// Lays the columns out by their longest cells.
#include "parameter_table.h"

#include <algorithm>
#include <iomanip>

namespace brushworks::tools {
namespace {

struct Row {
    std::string group;
    std::vector<std::string> cells;
};

std::vector<std::size_t> columnWidths(const std::vector<Row>& rows) {
    std::vector<std::size_t> widths;
    for (const Row& row : rows) {
        widths.resize(row.cells.size());
        for (std::size_t i = 0; i < widths.size(); ++i) {
            widths[i] = std::max(widths[i], row.cells[i].size());
        }
    }
    // The last column has nothing to its right.
    if (!widths.empty()) widths.back() = 0;
    return widths;
}

}  // namespace

void writeParameterTable(const std::vector<host::ParameterInfo>& parameters, std::ostream& out,
                         const ParameterCells& cells) {
    std::vector<Row> rows;
    for (const host::ParameterInfo& parameter : parameters) {
        if (parameter.hasValue()) rows.push_back({parameter.group, cells(parameter)});
    }
    const std::vector<std::size_t> widths = columnWidths(rows);
    std::string group;
    for (const Row& row : rows) {
        if (row.group != group) {
            group = row.group;
            out << (group.empty() ? "Further" : group) << ":\n";
        }
        for (std::size_t i = 0; i < widths.size(); ++i) {
            out << "  " << std::setw(static_cast<int>(widths[i])) << std::left << row.cells[i];
        }
        out << '\n';
    }
}

}  // namespace brushworks::tools
