// Fills a folder beside the output, syncs, and changes it for what was there.
#include "output_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

constexpr char kListName[] = ".brushworks-gallery";
constexpr char kListTitle[] = "Files of a Brushworks gallery; all of them go when it is replaced.";

int makeFolder(const std::string& path) {
    return mkdir(path.c_str(), 0777) == 0 ? 0 : errno;
}

/// The files that belong to the folder by its own list, with the list; none without one.
std::set<std::string> ownFiles(const fs::path& folder) {
    std::ifstream list(folder / kListName);
    std::string line;
    std::set<std::string> names;
    if (!std::getline(list, line) || line != kListTitle) return names;
    names.insert(kListName);
    while (std::getline(list, line)) names.insert(line);
    return names;
}

/// Writes the list of the files that are in the folder; their names.
std::vector<std::string> writeList(const fs::path& folder) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::ofstream list(folder / kListName);
    list << kListTitle << '\n';
    for (const std::string& name : names) list << name << '\n';
    list.close();
    if (!list) failWriting(folder, errno);
    return names;
}

void syncFiles(const fs::path& folder, const std::vector<std::string>& names) {
    for (const std::string& name : names) syncToDisk((folder / name).string());
    syncToDisk((folder / kListName).string());
    syncToDisk(folder.string());
}

/// The path without a slash at its end, so that it has a name and a folder to stand in.
fs::path named(const std::string& path) {
    const fs::path plain = fs::path(path).lexically_normal();
    return plain.has_filename() ? plain : plain.parent_path();
}

}  // namespace

OutputFolder::OutputFolder(const std::string& path, bool replace, InputFiles inputs)
    : m_sGiven(path),
      m_path(behindLink(named(path))),
      m_bReplace(replace),
      m_inputs(std::move(inputs)) {
    std::error_code ignored;
    if (fs::equivalent(m_path, fs::current_path(), ignored)) {
        throw std::runtime_error(path + " is the current folder; the output needs one of its own");
    }
    checkTarget();
    m_unfinished.emplace(m_path, makeFolder);
}

OutputFolder::Holds OutputFolder::checkTarget() const {
    const fs::file_status status = fs::status(m_path);
    if (!fs::exists(status)) return Holds::kNothing;
    if (!fs::is_directory(status)) throw std::runtime_error(m_sGiven + " is not a folder");
    const std::set<std::string> own = ownFiles(m_path);
    Holds holds = Holds::kNothing;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_path)) {
        m_inputs.refuse(entry.path().string());
        const std::string name = entry.path().filename().string();
        if (own.count(name) == 0 || entry.is_directory()) {
            throw std::runtime_error(m_sGiven + " holds other files, such as " + name +
                                     "; choose another folder");
        }
        holds = Holds::kOwnFiles;
    }
    if (holds == Holds::kOwnFiles && !m_bReplace) {
        throw std::runtime_error(m_sGiven + " holds a gallery; --force replaces it");
    }
    return holds;
}

void OutputFolder::commit() {
    const fs::path folder = temporaryPath();
    syncFiles(folder, writeList(folder));
    // Rendering may have taken long enough for somebody to put a file there.
    const bool exchange = checkTarget() == Holds::kOwnFiles;
    const unsigned int flags = exchange ? RENAME_EXCHANGE : 0;
    if (renameat2(AT_FDCWD, folder.c_str(), AT_FDCWD, m_path.c_str(), flags) != 0) {
        failWriting(m_path, errno);
    }
    // After an exchange the old files have the unfinished name, and go with it.
    if (!exchange) m_unfinished->keep();
}

}  // namespace brushworks::tools
