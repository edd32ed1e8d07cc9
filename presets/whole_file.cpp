#include "presets/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace brushworks {
namespace {

namespace fs = std::filesystem;

/// A file descriptor that is closed in the end.
class Descriptor {
  public:
    Descriptor(const fs::path& path, int flags, mode_t mode = 0)
        : m_nDescriptor(open(path.c_str(), flags | O_CLOEXEC, mode)) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return m_nDescriptor; }
    bool IsOpen() const { return m_nDescriptor >= 0; }
    /// False when what was written may not have arrived.
    bool Close() {
        const int descriptor = m_nDescriptor;
        m_nDescriptor = -1;
        return descriptor >= 0 && close(descriptor) == 0;
    }

  private:
    int m_nDescriptor;
};

/// Where the last name of a path leads when it is a link, also when nothing is there yet; else the
/// path itself. Empty for links that lead in a circle.
fs::path BehindLinks(fs::path path) {
    constexpr int kMaxLinks = 40;  // as the kernel has it
    std::error_code error;
    for (int links = 0; fs::is_symlink(path, error); ++links) {
        if (links == kMaxLinks) return {};
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return path;
}

bool Write(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// A name beside `target` that no other save of this machine takes at the same time.
fs::path NameBeside(const fs::path& target) {
    static std::atomic<unsigned int> count = 0;
    return target.parent_path() /
           (".preset-" + std::to_string(getpid()) + "-" + std::to_string(count++) + ".tmp");
}

/// Writes `text` to `path`, which must be new, with the access rights of `old`, if there is one.
bool WriteNewFile(const fs::path& path, std::string_view text, const struct stat* old) {
    const mode_t rights = old ? old->st_mode & 0777 : 0666;
    Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL, rights);
    if (!file.IsOpen()) return false;
    // The process's mask took some of them; where the file system has none, fewer will do.
    if (old) fchmod(file.get(), rights);
    const bool written = Write(file.get(), text) && fsync(file.get()) == 0;
    if (file.Close() && written) return true;
    const int error = errno;
    unlink(path.c_str());
    errno = error;
    return false;
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t limit) {
    // Opening a pipe would otherwise wait for its writer.
    const Descriptor file(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat status;
    if (!file.IsOpen() || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    std::string text(limit + 1, '\0');
    std::size_t size = 0;
    while (size < text.size()) {
        const ssize_t got = read(file.get(), text.data() + size, text.size() - size);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        size += static_cast<std::size_t>(got);
    }
    if (size > limit) return std::nullopt;
    text.resize(size);
    return text;
}

bool ReplaceWholeFile(const std::string& path, std::string_view text) {
    const fs::path target = BehindLinks(path);
    if (target.empty()) return false;
    struct stat old;
    const bool exists = stat(target.c_str(), &old) == 0;
    if (exists &&
        (!S_ISREG(old.st_mode) || faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0))
        return false;

    // Known before the file is replaced: nothing may fail between that and the answer.
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    constexpr int kTries = 100;
    fs::path whole = NameBeside(target);
    bool written = WriteNewFile(whole, text, exists ? &old : nullptr);
    for (int tries = 1; !written && errno == EEXIST && tries < kTries; ++tries) {
        whole = NameBeside(target);
        written = WriteNewFile(whole, text, exists ? &old : nullptr);
    }
    if (!written) return false;
    if (std::rename(whole.c_str(), target.c_str()) != 0) {
        unlink(whole.c_str());
        return false;
    }
    // The new name is safe too once the folder is on the disk.
    const Descriptor directory(folder, O_RDONLY | O_DIRECTORY);
    if (directory.IsOpen()) fsync(directory.get());
    return true;
}

}  // namespace brushworks
