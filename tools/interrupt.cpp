// The handler does the little that a handler may: it removes one file, or one folder with its
// files, and lets the signal go on, so that a long render ends at once and the caller sees which
// signal ended it.
#include "interrupt.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstring>

namespace brushworks::tools {
namespace {

char g_path[PATH_MAX];
std::atomic<bool> g_armed = false;
static_assert(std::atomic<bool>::is_always_lock_free);

/// Removes a folder that holds nothing but files. Threads that still run may yet add some, so it is
/// read again until it goes.
void removeFolder(const char* path) {
    constexpr int kAttempts = 1000;
    alignas(dirent64) static char entries[8192];
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (rmdir(path) == 0 || errno != ENOTEMPTY) return;
        const int folder = open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (folder < 0) return;
        // Not readdir, which allocates and locks.
        for (ssize_t size; (size = getdents64(folder, entries, sizeof entries)) > 0;) {
            for (ssize_t at = 0; at < size;) {
                const auto* entry = reinterpret_cast<const dirent64*>(entries + at);
                unlinkat(folder, entry->d_name, 0);
                at += entry->d_reclen;
            }
        }
        close(folder);
    }
}

extern "C" void removeAndEnd(int signalNumber) {
    const int interrupted = errno;
    if (g_armed.exchange(false) && unlink(g_path) != 0) removeFolder(g_path);
    // The handler is gone (SA_RESETHAND), so this ends the program as soon as it returns.
    raise(signalNumber);
    errno = interrupted;
}

void installHandlers() {
    for (const int number :
         {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGXCPU, SIGXFSZ, SIGABRT}) {
        struct sigaction old = {};
        sigaction(number, nullptr, &old);
        if (old.sa_handler == SIG_IGN) continue;  // started in the background, by nohup
        struct sigaction action = {};
        action.sa_handler = removeAndEnd;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        sigaction(number, &action, nullptr);
    }
}

}  // namespace

void removeOnInterrupt(const std::string& path) {
    g_armed = false;
    if (path.size() >= sizeof g_path) return;  // no file can be made there
    std::memcpy(g_path, path.c_str(), path.size() + 1);
    g_armed = true;
    installHandlers();
}

void keepOnInterrupt() {
    g_armed = false;
}

}  // namespace brushworks::tools
