// How much memory a run may take.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace brushworks::tools {

/// The bytes that are free on this machine, and in every control group that limits this process,
/// where what the system can take back counts as free; the most there can be where nobody says.
/// Files are read below `root`.
std::int64_t freeMemory(const std::filesystem::path& root = "/");

/// The bytes that "800M", "1.5G" (of K, M, G, T, in steps of 1024) or "50%" of the free ones mean;
/// half of these for "". Throws host::UsageError.
std::int64_t memoryLimit(const std::string& text, std::int64_t free);

/// A number of bytes for people, rounded up: "2.4 GB".
std::string bytesText(std::int64_t bytes);

}  // namespace brushworks::tools
