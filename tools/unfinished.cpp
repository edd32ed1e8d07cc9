// Finds a free name beside the target, and arms the removal.
#include "unfinished.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "interrupt.h"

namespace brushworks::tools {
namespace fs = std::filesystem;

void failWriting(const fs::path& path, int error) {
    throw std::runtime_error("cannot write " + path.string() + ": " + std::strerror(error));
}

void syncToDisk(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) failWriting(path, errno);
    const int result = fsync(file);
    const int error = errno;
    close(file);
    // Some file systems have no such operation; their files are as whole as they can be.
    if (result != 0 && error != EINVAL && error != ENOSYS) failWriting(path, error);
}

fs::path behindLink(const fs::path& path) {
    std::error_code ignored;
    if (!fs::is_symlink(fs::symlink_status(path, ignored))) return path;
    const fs::path target = fs::weakly_canonical(path, ignored);
    return target.empty() ? path : target;
}

Unfinished::Unfinished(const fs::path& target, Make make) {
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    for (int attempt = 0; !m_bPending; ++attempt) {
        m_sPath = (folder / (".brushworks-" + std::to_string(getpid()) + "-" +
                             std::to_string(attempt) + ".part"))
                      .string();
        // Before it is there, so that no moment is left in which a signal would forget it.
        removeOnInterrupt(m_sPath);
        const int error = make(m_sPath);
        m_bPending = error == 0;
        if (error == 0) return;
        keepOnInterrupt();
        if (error != EEXIST) failWriting(target, error);
    }
}

Unfinished::~Unfinished() {
    if (!m_bPending) return;
    std::error_code ignored;
    fs::remove_all(m_sPath, ignored);
    keepOnInterrupt();
}

void Unfinished::keep() {
    m_bPending = false;
    keepOnInterrupt();
}

}  // namespace brushworks::tools
