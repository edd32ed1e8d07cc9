// Compares files by what the system knows them by, and by where they lie.
#include "input_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <stdexcept>

#include "unfinished.h"

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

constexpr char kStandardStream[] = "-";

/// Nothing where there is no file, or a pipe or a device: these are not replaced.
std::optional<std::pair<dev_t, ino_t>> idOf(const std::string& path, int standardStream) {
    struct stat facts = {};
    const int failed =
        path == kStandardStream ? fstat(standardStream, &facts) : stat(path.c_str(), &facts);
    if (failed != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
    return std::pair(facts.st_dev, facts.st_ino);
}

[[noreturn]] void refuseSame(const std::string& output, const std::string& input) {
    throw std::runtime_error("the output " + output + " is the same file as the input " + input +
                             "; choose another name or folder for the output");
}

}  // namespace

std::string FilePlaces::of(const std::string& path) {
    const fs::path file = behindLink(path);
    const std::string folder = file.has_parent_path() ? file.parent_path().string() : ".";
    const auto [found, isNew] = m_folders.try_emplace(folder);
    if (isNew) {
        std::error_code ignored;
        found->second = fs::weakly_canonical(fs::absolute(folder, ignored), ignored).string();
        if (found->second.empty()) found->second = folder;
    }
    return (fs::path(found->second) / file.filename()).string();
}

void InputFiles::add(const std::string& path) {
    const bool standard = path == kStandardStream;
    const std::string name = standard ? "standard input" : path;
    if (!standard) m_byPlace.emplace(m_places.of(path), name);
    if (const auto id = idOf(path, STDIN_FILENO)) m_byId.emplace(*id, name);
}

void InputFiles::refuse(const std::string& output) const {
    const bool standard = output == kStandardStream;
    const std::string name = standard ? "standard output" : output;
    if (const auto id = idOf(output, STDOUT_FILENO)) {
        const auto found = m_byId.find(*id);
        if (found != m_byId.end()) refuseSame(name, found->second);
    }
    std::error_code ignored;
    if (standard || !fs::exists(output, ignored)) return;
    const auto found = m_byPlace.find(FilePlaces().of(output));
    if (found != m_byPlace.end()) refuseSame(name, found->second);
}

}  // namespace brushworks::tools
