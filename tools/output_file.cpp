// Writes beside the output, syncs and renames.
#include "output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "interrupt.h"

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& path, int error) {
    throw std::runtime_error("cannot write " + path.string() + ": " + std::strerror(error));
}

/// Puts what has been written to the file on the disk.
void syncFile(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) fail(path, errno);
    const int result = fsync(file);
    const int error = errno;
    close(file);
    // Some file systems have no such operation; their files are as whole as they can be.
    if (result != 0 && error != EINVAL && error != ENOSYS) fail(path, error);
}

}  // namespace

OutputFile::OutputFile(const std::string& path, bool replace) : m_path(path), m_bReplace(replace) {
    std::error_code ignored;
    // A link keeps its place: the file that it points to is replaced.
    if (fs::is_symlink(fs::symlink_status(m_path, ignored))) {
        const fs::path target = fs::weakly_canonical(m_path, ignored);
        if (!target.empty()) m_path = target;
    }
    const fs::file_status status = fs::status(m_path, ignored);
    if (fs::is_directory(status)) throw std::runtime_error(path + " is a folder");
    if (fs::exists(status)) {
        if (!replace) throw std::runtime_error(path + " exists; --force replaces it");
        if (!fs::is_regular_file(status)) throw std::runtime_error(path + " is not a plain file");
    }
    createTemporary();
}

void OutputFile::createTemporary() {
    const fs::path folder = m_path.has_parent_path() ? m_path.parent_path() : fs::path(".");
    for (int attempt = 0;; ++attempt) {
        m_sTemporary = (folder / (".brushworks-" + std::to_string(getpid()) + "-" +
                                  std::to_string(attempt) + ".part"))
                           .string();
        // Before the file is there, so that no moment is left in which a signal would forget it.
        removeOnInterrupt(m_sTemporary);
        const int file = open(m_sTemporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file >= 0) {
            close(file);
            m_bPending = true;
            return;
        }
        const int error = errno;
        keepOnInterrupt();
        if (error != EEXIST) fail(m_path, error);
    }
}

OutputFile::~OutputFile() {
    if (!m_bPending) return;
    unlink(m_sTemporary.c_str());
    keepOnInterrupt();
}

void OutputFile::commit() {
    syncFile(m_sTemporary);
    const unsigned int flags = m_bReplace ? 0 : RENAME_NOREPLACE;
    int result = renameat2(AT_FDCWD, m_sTemporary.c_str(), AT_FDCWD, m_path.c_str(), flags);
    // A file system without the flag; the constructor has looked for the file.
    if (result != 0 && errno == EINVAL) result = rename(m_sTemporary.c_str(), m_path.c_str());
    if (result != 0) fail(m_path, errno);
    m_bPending = false;
    keepOnInterrupt();
}

}  // namespace brushworks::tools
