// Runs a program for what it writes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brushworks {

struct ProcessResult {
    bool started = false;
    /// None when a signal ended the process, or when the host reaped it before we could.
    std::optional<int> status;
    std::string output;  ///< what it wrote to standard output, at most kMostOutput bytes
};
inline constexpr std::size_t kMostOutput = 1 << 16;

/// The first executable of that name in the absolute folders of a PATH, or nothing.
std::string FindProgram(std::string_view name, std::string_view path);

/// Starts `program`, a path, without a shell and waits for its end. Standard input is empty,
/// standard error is the host's, and no other open file reaches it. `environment` holds entries
/// NAME=VALUE.
ProcessResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::string>& environment);

}  // namespace brushworks
