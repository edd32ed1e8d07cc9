#include "panels/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace brushworks {
namespace {

class Descriptor {
  public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    int number() const { return m_number; }
    void Close() {
        if (m_number >= 0) close(std::exchange(m_number, -1));
    }

  private:
    int m_number;
};

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    return pointers;
}

/// Starts the program with `output` for its standard output, or returns -1.
pid_t Start(const std::string& program, const std::vector<std::string>& arguments,
            const std::vector<std::string>& environment, int output) {
    std::vector<char*> words = Pointers(arguments);
    words.insert(words.begin(), const_cast<char*>(program.c_str()));
    words.push_back(nullptr);
    std::vector<char*> variables = Pointers(environment);
    variables.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);

    // A host's thread may block signals, and ignored ones stay ignored in a child.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    for (const int number : {SIGPIPE, SIGCHLD}) sigaddset(&signals, number);
    posix_spawnattr_setsigdefault(&attributes, &signals);

    pid_t process = -1;
    const int error =
        posix_spawn(&process, program.c_str(), &files, &attributes, words.data(), variables.data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return error == 0 ? process : -1;
}

/// Takes what waits in a pipe that does not block. Returns whether more may come.
bool TakeWaiting(int pipe, std::string& output) {
    char bytes[4096];
    for (;;) {
        const ssize_t count = read(pipe, bytes, sizeof(bytes));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return count < 0 && errno == EAGAIN;
        output.append(bytes,
                      std::min(static_cast<std::size_t>(count), kMostOutput - output.size()));
    }
}

/// Reads until the pipe or the process ends: a helper that the process leaves behind may hold the
/// pipe open for as long as it likes. A negative `process` is not watched.
void ReadToEnd(int pipe, int process, std::string& output) {
    pollfd watched[] = {{pipe, POLLIN, 0}, {process, POLLIN, 0}};
    bool hasEnded = false;
    while (!hasEnded) {
        if (poll(watched, std::size(watched), -1) < 0) {
            if (errno == EINTR) continue;
            return;
        }
        // Asked before the pipe is emptied: what an ended process wrote waits there by now.
        hasEnded = watched[1].revents != 0;
        if (!TakeWaiting(pipe, output)) return;
    }
}

std::optional<int> Reap(pid_t process) {
    int status = 0;
    pid_t reaped = -1;
    do {
        reaped = waitpid(process, &status, 0);
    } while (reaped < 0 && errno == EINTR);
    if (reaped != process || !WIFEXITED(status)) return std::nullopt;
    return WEXITSTATUS(status);
}

}  // namespace

std::string FindProgram(std::string_view name, std::string_view path) {
    while (!path.empty()) {
        const std::string_view folder = path.substr(0, path.find(':'));
        path.remove_prefix(std::min(folder.size() + 1, path.size()));
        if (!folder.starts_with('/')) continue;
        std::string file = std::string(folder).append("/").append(name);
        struct stat facts;
        if (stat(file.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) &&
            access(file.c_str(), X_OK) == 0)
            return file;
    }
    return {};
}

ProcessResult RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::string>& environment) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return {};
    const Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    if (fcntl(reading.number(), F_SETFL, O_NONBLOCK) != 0) return {};

    const pid_t process = Start(program, arguments, environment, writing.number());
    if (process < 0) return {};
    writing.Close();
    ProcessResult result;
    result.started = true;
    {
        // Where the kernel has no such descriptor, the end of the pipe must do.
        const Descriptor watch(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
        ReadToEnd(reading.number(), watch.number(), result.output);
    }
    result.status = Reap(process);
    return result;
}

}  // namespace brushworks
