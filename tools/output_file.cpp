// Writes beside the output, syncs and renames.
#include "output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <stdexcept>

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

int makeFile(const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0) return errno;
    close(file);
    return 0;
}

/// Where the file comes to lie. A link keeps its place: the file that it points to is replaced.
fs::path checkedTarget(const std::string& path, bool replace, const InputFiles& inputs) {
    inputs.refuse(path);
    fs::path target = behindLink(path);
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    if (fs::is_directory(status)) throw std::runtime_error(path + " is a folder");
    if (fs::exists(status)) {
        if (!replace) throw std::runtime_error(path + " exists; --force replaces it");
        if (!fs::is_regular_file(status)) throw std::runtime_error(path + " is not a plain file");
    }
    return target;
}

}  // namespace

void OutputFile::check(const std::string& path, bool replace, const InputFiles& inputs) {
    const fs::path target = checkedTarget(path, replace, inputs);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    if (access(folder.c_str(), W_OK | X_OK) != 0) failWriting(target, errno);
}

OutputFile::OutputFile(const std::string& path, bool replace, const InputFiles& inputs)
    : m_path(checkedTarget(path, replace, inputs)), m_bReplace(replace) {
    m_unfinished.emplace(m_path, makeFile);
}

void OutputFile::write(const std::string& bytes) {
    const int file = open(temporaryPath().c_str(), O_WRONLY | O_CLOEXEC);
    if (file < 0) failWriting(m_path, errno);
    int error = 0;
    for (std::size_t done = 0; done < bytes.size() && error == 0;) {
        const ssize_t count = ::write(file, bytes.data() + done, bytes.size() - done);
        if (count >= 0) {
            done += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            error = errno;
        }
    }
    if (close(file) != 0 && error == 0) error = errno;
    if (error != 0) failWriting(m_path, error);
}

void OutputFile::commit() {
    syncToDisk(temporaryPath());
    const unsigned int flags = m_bReplace ? 0 : RENAME_NOREPLACE;
    int result = renameat2(AT_FDCWD, temporaryPath().c_str(), AT_FDCWD, m_path.c_str(), flags);
    // A file system without the flag; the constructor has looked for the file.
    if (result != 0 && errno == EINVAL) result = rename(temporaryPath().c_str(), m_path.c_str());
    if (result != 0) failWriting(m_path, errno);
    m_unfinished->keep();
}

}  // namespace brushworks::tools
