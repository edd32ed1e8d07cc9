// Reads what the kernel tells in files.
#include "memory_limit.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <string_view>

#include "host/error.h"
#include "host/value_text.h"

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kUnlimited = std::numeric_limits<std::int64_t>::max();

/// The number behind `key` in a file of lines like "MemAvailable:   123 kB"; that which the file
/// begins with for "". Nothing where it is not there, or "max".
std::optional<std::int64_t> numberIn(const fs::path& path, const std::string& key) {
    std::ifstream file(path);
    std::string word;
    while (!key.empty() && file >> word && word != key) continue;
    std::int64_t number = 0;
    return file >> number ? std::optional(number) : std::nullopt;
}

/// The files of a version of control groups.
struct GroupFiles {
    const char* folder;
    const char* limit;
    const char* used;
    const char* reclaimable;  ///< in memory.stat: what was read from files, and not lately
};
constexpr GroupFiles kUnified = {"sys/fs/cgroup", "memory.max", "memory.current", "inactive_file"};
constexpr GroupFiles kSeparate = {"sys/fs/cgroup/memory", "memory.limit_in_bytes",
                                  "memory.usage_in_bytes", "total_inactive_file"};

std::int64_t freeInGroup(const fs::path& group, const GroupFiles& files) {
    const auto limit = numberIn(group / files.limit, "");
    const auto used = numberIn(group / files.used, "");
    if (!limit || !used) return kUnlimited;
    const auto reclaimable = numberIn(group / "memory.stat", files.reclaimable);
    return std::max<std::int64_t>(*limit - *used + reclaimable.value_or(0), 0);
}

/// The least that is free in the group and those around it. A container may see its own group as
/// the outermost one, with a path that is there for others only.
std::int64_t freeInGroups(const fs::path& root, const GroupFiles& files, std::string path) {
    const fs::path folder = root / files.folder;
    std::int64_t free = freeInGroup(folder, files);
    while (path.size() > 1) {
        free = std::min(free, freeInGroup(folder / path.substr(1), files));
        path.resize(path.rfind('/'));
    }
    return free;
}

bool listsMemory(const std::string& controllers) {
    std::istringstream list(controllers);
    for (std::string name; std::getline(list, name, ',');) {
        if (name == "memory") return true;
    }
    return false;
}

[[noreturn]] void refuse(const std::string& text) {
    throw host::UsageError("\"" + text + "\" is no size of memory; write 800M, 2G, or 50% of " +
                           "what is free");
}

}  // namespace

std::int64_t freeMemory(const fs::path& root) {
    std::int64_t free = kUnlimited;
    if (const auto kilobytes = numberIn(root / "proc/meminfo", "MemAvailable:")) {
        free = *kilobytes * 1024;
    }
    // Lines of "NUMBER:CONTROLLERS:PATH".
    std::ifstream groups(root / "proc/self/cgroup");
    for (std::string line; std::getline(groups, line);) {
        std::istringstream fields(line);
        std::string number;
        std::string controllers;
        std::string path;
        std::getline(fields, number, ':');
        std::getline(fields, controllers, ':');
        std::getline(fields, path);
        const bool unified = number == "0" && controllers.empty();
        if (unified) free = std::min(free, freeInGroups(root, kUnified, path));
        if (listsMemory(controllers)) free = std::min(free, freeInGroups(root, kSeparate, path));
    }
    return free;
}

std::int64_t memoryLimit(const std::string& text, std::int64_t free) {
    constexpr std::string_view kUnits = "KMGT";
    constexpr double kMost = 1e18;
    if (text.empty()) return free / 2;
    const char unit = text.back();
    const std::optional<double> number = host::parseNumber(text.substr(0, text.size() - 1));
    if (!number || !(*number > 0)) refuse(text);
    if (unit == '%') {
        if (*number > 100) refuse(text);
        return static_cast<std::int64_t>(static_cast<double>(free) * (*number / 100));
    }
    const std::size_t step = kUnits.find(unit);
    if (step == std::string_view::npos) refuse(text);
    const double bytes = *number * std::pow(1024.0, static_cast<double>(step + 1));
    return static_cast<std::int64_t>(std::min(bytes, kMost));
}

std::string bytesText(std::int64_t bytes) {
    constexpr double kGiga = 1e9;
    constexpr double kMega = 1e6;
    const auto count = static_cast<double>(bytes);
    char text[48];
    if (count < kGiga) {
        std::snprintf(text, sizeof text, "%.0f MB", std::ceil(count / kMega));
    } else {
        std::snprintf(text, sizeof text, "%.1f GB", std::ceil(count / kGiga * 10) / 10);
    }
    return text;
}

}  // namespace brushworks::tools
